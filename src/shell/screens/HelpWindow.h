#pragma once

#include <QString>
#include <QUrl>
#include <QWidget>

#include <functional>
#include <map>

class QTextBrowser;

namespace quillon {

class AppModel;

// The help topics of the contents and the index.
inline constexpr int kHelpContents = 1;
inline constexpr int kHelpIndex = 2;

// The page of the questions a Z1 owner asks, which mnuHelpFAQ opens.
inline constexpr int kHelpFaq = 3;

// Every help context number that the help pages carry an anchor for, with
// the page that carries it (a path in the program's resources).
const std::map<int, QString>& helpTopicPages();

// The address of a help context's topic: its page and anchor. A number
// without a topic gives the contents.
QUrl helpTopicUrl(int context);

// The help window: one topic at a time, with the contents, the index and
// the way back and forward between the topics read.
class HelpWindow : public QWidget {
    Q_OBJECT
public:
    explicit HelpWindow(QWidget* parent = nullptr);

    // The one help window of the program, made when first asked for.
    static HelpWindow* instance();

    // Shows the topic of a help context number.
    void showContext(int context);

    // The help context shown last through showContext.
    int context() const { return context_; }
    // The page and anchor on show.
    QUrl source() const;

private:
    QTextBrowser* txtTopic_ = nullptr;
    int context_ = 0;
};

}  // namespace quillon
