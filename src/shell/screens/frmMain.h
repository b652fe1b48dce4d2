#pragma once

#include <QMainWindow>

#include <functional>
#include <map>
#include <string>

class QAction;
class QLabel;
class QMenu;
class QToolBar;

namespace quillon {

class AppModel;
class BankScreen;
class ModelSignals;
class QtHost;

// The main window: the menu bar, the toolbar tlbMain, the labels of
// fraLoaded that name what is in memory, the area of the editing screens and
// the status lines lblStatus and lblMessage. It shows the model and turns
// the user's commands into calls of the core.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    frmMain(AppModel& model, QtHost& host, QWidget* parent = nullptr);
    ~frmMain() override;

    // The menu item or toolbar action of a name ("mnuOpen", "tlbMain_open").
    QAction* action(const QString& name) const;

    // Shows the model as it now stands.
    void refresh(unsigned changes);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildMenus();
    void buildToolbar();
    void buildCentre();
    void wireCommands();
    void wireMidiCommands();
    void wireBankCommands();
    void wireReorderCommands();
    void addSelectionTools(const char* boxName, const char* spinName, int min, int max);
    void refreshSelectionTools();
    void showMergeNext(const char* boxName, const char* spinName, const std::string& text, int value);
    void setCommand(const QString& name, std::function<void()> command);
    void refreshLabels();
    void refreshSendMenu();
    void refreshRecentFiles();
    void openFile(int recentIndex);
    void saveFile(int how);

    AppModel& model_;
    QtHost& host_;
    ModelSignals* signals_ = nullptr;
    QToolBar* toolbar_ = nullptr;
    std::map<int, QLabel*> loadedLabels_;  // by Kind
    QLabel* status_ = nullptr;
    QLabel* message_ = nullptr;
    BankScreen* bankScreen_ = nullptr;
    // The toolbar's places of the controls beside the merge tools.
    std::map<std::string, QAction*> selectionTools_;
};

}  // namespace quillon
