#pragma once

#include <QDialog>

#include <array>

class QRadioButton;

namespace quillon {

class AppModel;

// The help topic of the Request dialog.
inline constexpr int kRequestHelpContext = 101;
inline constexpr int kRequestOptions = 8;

// Request: the user picks one of the eight kinds of data the instrument can
// be asked for. OK sends the request and leaves the input open for the
// answer; Cancel closes the dialog and asks for nothing.
class frmRequest : public QDialog {
    Q_OBJECT

public:
    frmRequest(AppModel& model, QWidget* parent = nullptr);
    ~frmRequest() override;

    // Option 0 ("Current patch") chosen, and the text for the end of the
    // output emptied.
    void doSetup();

    // The index of the chosen option, 0 to 7.
    int selectedIndex() const;

    // The dialog while it is loaded; null otherwise.
    static frmRequest* loaded();

private:
    void cmdOKClick();

    AppModel& model_;
    std::array<QRadioButton*, kRequestOptions> optData_{};
};

// Unloads frmRequest if it is loaded: the answer to a request has come.
void unloadRequestDialog();

}  // namespace quillon
