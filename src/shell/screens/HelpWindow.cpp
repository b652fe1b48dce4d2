#include "shell/screens/HelpWindow.h"

#include "shell/AppModel.h"
#include "shell/screens/FormLaunchers.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>

// The help pages are compiled into the program; a static library must ask
// for its resources by name.
static void initHelpResources()
{
    Q_INIT_RESOURCE(quillon_help);
}

namespace quillon {

namespace {

constexpr const char* kHelpFolder = ":/help";

QPointer<HelpWindow>& theWindow()
{
    static QPointer<HelpWindow> window;
    return window;
}

void deleteHelpWindow()
{
    delete theWindow().data();
}

QUrl resourceUrl(const QString& path, int context)
{
    QUrl url("qrc" + path);
    url.setFragment(QString::number(context));
    return url;
}

}  // namespace

const std::map<int, QString>& helpTopicPages()
{
    static const std::map<int, QString> pages = [] {
        initHelpResources();
        std::map<int, QString> found;
        static const QRegularExpression anchor(R"re(<a\s+name="(\d+)")re");
        const QDir folder(kHelpFolder);
        for (const QString& file : folder.entryList({"*.html"}, QDir::Files, QDir::Name)) {
            QFile page(folder.filePath(file));
            if (!page.open(QIODevice::ReadOnly))
                continue;
            const QString text = QString::fromUtf8(page.readAll());
            for (auto match = anchor.globalMatch(text); match.hasNext();)
                found.emplace(match.next().captured(1).toInt(), folder.filePath(file));
        }
        return found;
    }();
    return pages;
}

QUrl helpTopicUrl(int context)
{
    const auto& pages = helpTopicPages();
    auto page = pages.find(context);
    if (page == pages.end())
        page = pages.find(kHelpContents);
    if (page == pages.end())
        return {};
    return resourceUrl(page->second, page->first);
}

HelpWindow::HelpWindow(QWidget* parent) : QWidget(parent, Qt::Window)
{
    setObjectName("HelpWindow");
    setWindowTitle("Quillon Help");
    setAttribute(Qt::WA_QuitOnClose, false);

    txtTopic_ = new QTextBrowser(this);
    txtTopic_->setObjectName("txtTopic");
    txtTopic_->setOpenExternalLinks(true);
    txtTopic_->setSearchPaths({kHelpFolder});
    txtTopic_->document()->setDefaultStyleSheet(
        "dt { font-weight: bold; margin-top: 8px; } dd { margin-bottom: 4px; } .nav { font-size: small; }");

    auto* cmdContents = new QPushButton("&Contents", this);
    cmdContents->setObjectName("cmdContents");
    auto* cmdIndex = new QPushButton("&Index", this);
    cmdIndex->setObjectName("cmdIndex");
    auto* cmdBack = new QPushButton("&Back", this);
    cmdBack->setObjectName("cmdBack");
    cmdBack->setEnabled(false);
    auto* cmdForward = new QPushButton("&Forward", this);
    cmdForward->setObjectName("cmdForward");
    cmdForward->setEnabled(false);
    auto* cmdClose = new QPushButton("Close", this);
    cmdClose->setObjectName("cmdClose");
    connect(cmdContents, &QPushButton::clicked, this, [this] { showContext(kHelpContents); });
    connect(cmdIndex, &QPushButton::clicked, this, [this] { showContext(kHelpIndex); });
    connect(cmdBack, &QPushButton::clicked, txtTopic_, &QTextBrowser::backward);
    connect(cmdForward, &QPushButton::clicked, txtTopic_, &QTextBrowser::forward);
    connect(txtTopic_, &QTextBrowser::backwardAvailable, cmdBack, &QPushButton::setEnabled);
    connect(txtTopic_, &QTextBrowser::forwardAvailable, cmdForward, &QPushButton::setEnabled);
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);

    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {cmdContents, cmdIndex, cmdBack, cmdForward})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(cmdClose);
    auto* column = new QVBoxLayout(this);
    column->addLayout(buttons);
    column->addWidget(txtTopic_, 1);

    const QFontMetrics metrics = fontMetrics();
    resize(metrics.horizontalAdvance(QString(72, 'x')), metrics.lineSpacing() * 34);
}

HelpWindow* HelpWindow::instance()
{
    QPointer<HelpWindow>& window = theWindow();
    if (window.isNull()) {
        window = new HelpWindow;
        qAddPostRoutine(deleteHelpWindow);
    }
    return window.data();
}

void HelpWindow::showContext(int context)
{
    context_ = context;
    txtTopic_->setSource(helpTopicUrl(context));
}

QUrl HelpWindow::source() const { return txtTopic_->source(); }

void doHelpShowThis(int context)
{
    HelpWindow* window = HelpWindow::instance();
    // Help asked for from a modal window (a box's Help button) must be
    // readable while that window waits, so it is then modal itself;
    // otherwise it stands beside the main window.
    QWidget* modal = QApplication::activeModalWidget();
    const Qt::WindowModality wanted = modal != nullptr && modal != window ? Qt::ApplicationModal : Qt::NonModal;
    if (window->windowModality() != wanted) {
        window->hide();
        window->setWindowModality(wanted);
    }
    window->showContext(context);
    window->show();
    window->raise();
    window->activateWindow();
}

void openFaqPage(AppModel& model)
{
    if (helpTopicPages().count(kHelpFaq) == 0) {
        model.host().showMessage(
            {"Quillon on the Web", "Error accessing help page", MessageIcon::Exclamation, MessageButtons::Ok});
        return;
    }
    doHelpShowThis(kHelpFaq);
}

}  // namespace quillon
