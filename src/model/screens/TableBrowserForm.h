#pragma once

#include "model/TableBrowser.h"

#include <QDialog>
#include <QPointer>
#include <QString>

#include <array>
#include <vector>

class QLabel;
class QLineEdit;
class QScrollBar;

namespace quillon {

// A column of a browser form: the stem of its labels' and box's names and the
// text of its head.
struct BrowserColumnLayout {
    const char* labelStem;  // lbl<stem>_0 .. lbl<stem>_9, head lblHead<stem>
    const char* boxStem;    // txt<stem>
    const char* head;
    int widthInTwips;
};

// What frmParam, frmSection and frmSubSection share: ten lines of labels
// under a row of heads and search boxes, a scroll bar that moves the lines,
// and the buttons cmdSearch, cmdAll, cmdDone and cmdHelp. The forms only
// look; they change nothing.
class TableBrowserForm : public QDialog {
    Q_OBJECT
public:
    // Sets title and bar for a mode, clears the found rows and the search
    // boxes, and shows the first rows.
    void doSetup(int mode);

    const BrowserMode& browserMode() const { return mode_; }
    // The rows after the last search; empty when the whole mode is listed.
    const std::vector<int>& hits() const { return hits_; }
    bool searched() const { return searched_; }

protected:
    TableBrowserForm(BrowserTable table, std::vector<BrowserColumnLayout> columns, const QString& barName,
                     QWidget* parent);

    // The browser mode of a doSetup argument.
    virtual BrowserMode modeFor(int mode) const = 0;

    QLabel* head(int column) const { return heads_[column]; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void cmdSearchClick();
    void showRows();
    std::vector<std::string> boxTexts() const;

    BrowserTable table_;
    std::vector<BrowserColumnLayout> columns_;
    BrowserMode mode_;
    std::vector<int> hits_;
    bool searched_ = false;
    std::vector<QLabel*> heads_;
    std::vector<QLineEdit*> boxes_;
    std::vector<std::array<QLabel*, kBrowserLines>> cells_;
    QScrollBar* bar_ = nullptr;
};

// Each browser is one window: the first call opens it, a later one sets the
// open window up for its argument and brings it to the front.
template <typename Form>
void showBrowserWindow(QPointer<Form>& form, int which, QWidget* parent)
{
    if (form == nullptr) {
        form = new Form(which, parent);
        form->setAttribute(Qt::WA_DeleteOnClose);
    } else {
        form->doSetup(which);
    }
    form->show();
    form->raise();
    form->activateWindow();
}

}  // namespace quillon
