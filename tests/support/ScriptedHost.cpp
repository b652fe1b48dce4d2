#include "support/ScriptedHost.h"

#include <gtest/gtest.h>

namespace quillon {

namespace {

const char* dialogName(int dialog)
{
    static const char* const names[] = {"message box", "open-file dialog", "save-file dialog", "bank dialog"};
    return names[dialog];
}

}  // namespace

ScriptedHost::~ScriptedHost()
{
    for (const auto& e : expected_)
        ADD_FAILURE() << "expected " << dialogName(static_cast<int>(e.dialog)) << " \"" << e.title
                      << "\" was never shown";
}

ScriptedHost& ScriptedHost::expectMessage(std::string title, Answer answer, std::optional<std::string> text)
{
    expected_.push_back({Dialog::Message, std::move(title), std::move(text), answer, {}});
    return *this;
}

ScriptedHost& ScriptedHost::expectOpenFile(std::string title, std::optional<std::string> path)
{
    expected_.push_back({Dialog::OpenFile, std::move(title), {}, Answer::Ok, std::move(path)});
    return *this;
}

ScriptedHost& ScriptedHost::expectSaveFile(std::string title, std::optional<std::string> path)
{
    expected_.push_back({Dialog::SaveFile, std::move(title), {}, Answer::Ok, std::move(path)});
    return *this;
}

ScriptedHost& ScriptedHost::expectBankDialog(int mode, int place)
{
    Expected e{Dialog::BankDialog, "mode " + std::to_string(mode), {}, Answer::Ok, {}};
    e.place = place;
    expected_.push_back(std::move(e));
    return *this;
}

ScriptedHost::Expected ScriptedHost::take(Dialog dialog, const std::string& title, const std::string& text)
{
    if (expected_.empty()) {
        ADD_FAILURE() << "unexpected " << dialogName(static_cast<int>(dialog)) << " \"" << title << "\": " << text;
        return {dialog, title, {}, Answer::Cancel, {}};
    }
    Expected next = expected_.front();
    expected_.pop_front();
    if (next.dialog != dialog || next.title != title || (next.text && *next.text != text)) {
        ADD_FAILURE() << "expected " << dialogName(static_cast<int>(next.dialog)) << " \"" << next.title << "\""
                      << (next.text ? ": " + *next.text : std::string()) << "\n  but got "
                      << dialogName(static_cast<int>(dialog)) << " \"" << title << "\": " << text;
        return {dialog, title, {}, Answer::Cancel, {}};
    }
    return next;
}

Answer ScriptedHost::showMessage(const MessageRequest& request)
{
    messages.push_back(request);
    return take(Dialog::Message, request.title, request.text).answer;
}

std::optional<std::string> ScriptedHost::chooseOpenFile(const FileDialogRequest& request)
{
    openDialogs.push_back(request);
    return take(Dialog::OpenFile, request.title, request.fileName).path;
}

std::optional<std::string> ScriptedHost::chooseSaveFile(const FileDialogRequest& request)
{
    saveDialogs.push_back(request);
    return take(Dialog::SaveFile, request.title, request.fileName).path;
}

int ScriptedHost::chooseBankPlace(const BankDialogRequest& request)
{
    bankDialogs.push_back(request);
    return take(Dialog::BankDialog, "mode " + std::to_string(request.mode), request.newName).place;
}

void ScriptedHost::setStatus(const std::string& text, StatusColour colour)
{
    status = text;
    statusColour = colour;
}

void ScriptedHost::setMessage(const std::string& text) { message = text; }

void ScriptedHost::setBusy(bool busy) { busyDepth += busy ? 1 : -1; }

}  // namespace quillon
