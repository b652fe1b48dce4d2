#include "shell/screens/HelpWindow.h"

#include "shell/screens/Dialog.h"
#include "shell/screens/FormLaunchers.h"
#include "shell/screens/MessageBox.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/TestModel.h"

#include <QAction>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>

#include <gtest/gtest.h>

#include <set>

namespace quillon {

namespace {

QString readResource(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

// The help contexts the program's Help buttons and boxes use.
const std::set<int> kProgramContexts = {1,   2,   65,  66,  70,  101, 110, 115, 140, 145,
                                        150, 170, 220, 245, 260, 300, 310, 345, 350, 355};

// Every help context number written in the program's sources: the
// constants and fields named for help, the numbers given to
// doHelpShowThis, and the help number of a message request.
std::set<int> contextsInTheSources()
{
    std::set<int> found;
    const QRegularExpression patterns[] = {
        QRegularExpression(R"re([Hh]elp\w*\s*=\s*(\d+))re"),
        QRegularExpression(R"re(doHelpShowThis\((\d+)\))re"),
        QRegularExpression(R"re(MessageButtons::\w+,\s*true,\s*(\d+)\s*\})re"),
    };
    QDirIterator files(QUILLON_SOURCE_DIR, {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QString text = QString::fromUtf8(file.readAll());
        for (const auto& pattern : patterns) {
            for (auto match = pattern.globalMatch(text); match.hasNext();)
                found.insert(match.next().captured(1).toInt());
        }
    }
    return found;
}

void expectTopic(int context)
{
    const auto& pages = helpTopicPages();
    const auto page = pages.find(context);
    ASSERT_NE(page, pages.end()) << "no help topic for context " << context;
    EXPECT_TRUE(readResource(page->second).contains(QString("<a name=\"%1\">").arg(context))) << context;
}

TEST(HelpWindow, EveryContextOfTheProgramHasATopic)
{
    for (int context : kProgramContexts)
        expectTopic(context);
    for (int mode = 1; mode <= 5; ++mode)
        expectTopic(dialogHelpContext(mode));
    expectTopic(kMessageBoxHelpContext);
}

TEST(HelpWindow, EveryContextWrittenInTheSourcesHasATopic)
{
    const std::set<int> used = contextsInTheSources();
    ASSERT_TRUE(used.count(65) == 1 && used.count(220) == 1) << "the sources were not found at " << QUILLON_SOURCE_DIR;
    for (int context : used) {
        if (context != 0)
            expectTopic(context);
    }
}

TEST(HelpWindow, EveryLinkOfTheHelpLeadsToAPageAndAnchorThatExist)
{
    const QRegularExpression link(R"re(href="([^"#:]+)(?:#(\d+))?")re");
    const QDir folder(":/help");
    const QStringList files = folder.entryList({"*.html"});
    ASSERT_FALSE(files.isEmpty());
    for (const QString& file : files) {
        const QString text = readResource(folder.filePath(file));
        for (auto match = link.globalMatch(text); match.hasNext();) {
            const auto m = match.next();
            const QString target = m.captured(1);
            EXPECT_TRUE(files.contains(target)) << file.toStdString() << " links to " << target.toStdString();
            if (!m.captured(2).isEmpty()) {
                const int context = m.captured(2).toInt();
                const auto page = helpTopicPages().find(context);
                ASSERT_NE(page, helpTopicPages().end()) << file.toStdString() << " links to #" << context;
                EXPECT_EQ(QFileInfo(page->second).fileName(), target) << file.toStdString() << " #" << context;
            }
        }
    }
}

TEST(HelpWindow, EachContextHasOneTopicOnly)
{
    const QRegularExpression anchor(R"re(<a\s+name="(\d+)")re");
    std::multiset<int> anchors;
    const QDir folder(":/help");
    for (const QString& file : folder.entryList({"*.html"})) {
        const QString text = readResource(folder.filePath(file));
        for (auto match = anchor.globalMatch(text); match.hasNext();)
            anchors.insert(match.next().captured(1).toInt());
    }
    for (int context : anchors)
        EXPECT_EQ(anchors.count(context), 1u) << context;
}

TEST(HelpWindow, ShowsTheTopicOfTheContextAsked)
{
    doHelpShowThis(110);
    HelpWindow* help = HelpWindow::instance();
    EXPECT_TRUE(help->isVisible());
    EXPECT_EQ(help->context(), 110);
    EXPECT_EQ(help->source().fragment(), "110");
    EXPECT_EQ(help->source().fileName(), "send.html");
    EXPECT_TRUE(help->findChild<QTextBrowser*>("txtTopic")->toPlainText().contains("Sending to the Korg Z1"));
    help->close();
}

TEST(HelpWindow, ContentsAndIndexAreContextsOneAndTwo)
{
    doHelpShowThis(1);
    HelpWindow* help = HelpWindow::instance();
    EXPECT_EQ(help->source().fileName(), "contents.html");
    QTest::mouseClick(help->findChild<QPushButton*>("cmdIndex"), Qt::LeftButton);
    EXPECT_EQ(help->context(), 2);
    EXPECT_EQ(help->source().fileName(), "index.html");
    QTest::mouseClick(help->findChild<QPushButton*>("cmdContents"), Qt::LeftButton);
    EXPECT_EQ(help->context(), 1);
    EXPECT_EQ(help->source().fileName(), "contents.html");
    help->close();
}

TEST(HelpWindow, AContextWithoutATopicShowsTheContents)
{
    EXPECT_EQ(helpTopicUrl(9999).fileName(), "contents.html");
    EXPECT_EQ(helpTopicUrl(9999).fragment(), "1");
}

TEST(HelpWindow, BackReturnsToTheTopicReadBefore)
{
    doHelpShowThis(65);
    HelpWindow* help = HelpWindow::instance();
    doHelpShowThis(310);
    EXPECT_EQ(help->source().fileName(), "midi-error.html");
    auto* back = help->findChild<QPushButton*>("cmdBack");
    ASSERT_TRUE(back->isEnabled());
    QTest::mouseClick(back, Qt::LeftButton);
    EXPECT_EQ(help->source().fileName(), "open-file.html");
    help->close();
}

TEST(HelpWindow, FaqItemOfTheHelpMenuOpensTheQuestionPageOfTheBuiltInHelp)
{
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    AppModel model{host, store, folder.path()};
    frmMain window{model, host};
    QAction* faq = window.action("mnuHelpFAQ");
    ASSERT_NE(faq, nullptr);
    ASSERT_TRUE(faq->isEnabled());
    faq->trigger();
    HelpWindow* help = HelpWindow::instance();
    EXPECT_TRUE(help->isVisible());
    EXPECT_EQ(help->source().scheme(), "qrc");
    EXPECT_EQ(help->source().fileName(), "faq.html");
    EXPECT_EQ(help->source().fragment(), "3");
    help->close();
}

TEST(HelpWindow, QuestionPageAnswersWhatAZ1OwnerAsks)
{
    const QString page = readResource(helpTopicPages().at(kHelpFaq));
    for (const char* words : {"MIDI OUT", "MIDI IN", "interface", "Global mode", "MIDI filter", "exclusive",
                              "global", "channel", "JACK", "ALSA", "QUILLON_MIDI_API", "~/.local/share/Quillon",
                              "QUILLON_HOME"})
        EXPECT_TRUE(page.contains(words)) << words;
    EXPECT_FALSE(page.contains("http"));
}

}  // namespace
}  // namespace quillon

