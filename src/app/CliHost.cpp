#include "app/CliHost.h"

namespace quillon {

std::string CliHost::firstProblem() const
{
    for (const auto& m : messages) {
        if (m.buttons == MessageButtons::Ok)
            return m.title.empty() ? m.text : m.title + ": " + m.text;
    }
    return {};
}

Answer CliHost::showMessage(const MessageRequest& request)
{
    messages.push_back(request);
    switch (request.buttons) {
    case MessageButtons::Ok: return Answer::Ok;
    case MessageButtons::YesNo:
        if (refuseQuestions) {
            refused.push_back(request);
            return Answer::No;
        }
        return Answer::Yes;  // "Do you still want to save?"
    case MessageButtons::YesNoCancel: return Answer::No;     // no edits of ours to save first
    case MessageButtons::OkCancel: return Answer::Cancel;    // no one to pick a file
    }
    return Answer::Ok;
}

void CliHost::setStatus(const std::string& text, StatusColour colour) { statuses.emplace_back(text, colour); }

std::optional<std::string> CliHost::chooseOpenFile(const FileDialogRequest&) { return openPath; }

std::optional<std::string> CliHost::chooseSaveFile(const FileDialogRequest&) { return savePath; }

}  // namespace quillon
