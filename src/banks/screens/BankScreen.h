#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

#include <array>
#include <functional>
#include <map>

class QAction;
class QLabel;
class QMenu;

namespace quillon {

class AppModel;
class ClickLabel;

// The bank view: the 128 name labels lblBkPatch_0..127 of the PatchBank on
// show, eight a row and sixteen rows, stretched over the centre of frmMain
// in the proportions of the program's grid, and the two popup menus of a
// right click, mnuPopup1 (one patch) and mnuPopup2 (a selection). It draws
// the core's bank view state and hands every press and click to the core.
class BankScreen : public QWidget {
    Q_OBJECT
public:
    explicit BankScreen(AppModel& model, QWidget* parent = nullptr);

    // Draws what changed: the labels' names and colours, the Undo items.
    void refresh(unsigned changes);

    // Wires a popup item to a command and enables it; items without one
    // stay disabled.
    void setCommand(const QString& name, std::function<void()> command);

    QMenu* popup1() const { return popup1_; }
    QMenu* popup2() const { return popup2_; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeLabels();
    void placeLabels();
    void buildPopups();
    void showPopup(int popup, bool reorderItemsEnabled, QPoint at);
    QAction* item(const QString& name) const;

    AppModel& model_;
    std::array<ClickLabel*, 128> labels_{};
    std::array<int, 128> schemes_{};  // the scheme each label is drawn in
    // The style sheets of the colour schemes, made once.
    static constexpr int kSchemeStyles = 14;
    std::array<QString, kSchemeStyles> styles_;
    QMenu* popup1_ = nullptr;
    QMenu* popup2_ = nullptr;
    std::map<QString, bool> wired_;
};

}  // namespace quillon
