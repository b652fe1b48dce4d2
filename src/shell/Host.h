#pragma once

#include <functional>
#include <optional>
#include <string>

namespace quillon {

// Everything the core asks of the person at the screen: message boxes and
// questions, file dialogs, the two status lines of the main form and the
// hourglass. The program implements it with its dialogs; tests with a script.

enum class MessageIcon { None, Information, Exclamation, Critical, Question };

enum class MessageButtons { Ok, YesNo, YesNoCancel, OkCancel };

enum class Answer { Ok, Yes, No, Cancel };

struct MessageRequest {
    std::string title;
    std::string text;
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
    bool help = false;     // the box offers a Help button
    int helpContext = 0;   // the help topic that button opens
};

struct FileDialogRequest {
    std::string title;
    std::string filter;       // "SysEx files (*.syx)|*.syx"
    std::string startFolder;  // empty: the system's choice
    std::string fileName;     // prefilled name or path
};

// Colours of lblStatus as the program has always numbered them, blue in the
// high byte and red in the low: busy is orange, done green, error dark red.
enum class StatusColour : int { Busy = 16576, Done = 32768, Error = 192, Destination = 32768 };

// The shared Dialog of the bank commands in mode 1 (where a patch goes), 4
// (a multiset) or 5 (a pattern): the names it shows and where it starts. In
// modes 2 and 3 (a new Random or Spread bank) it asks only for the PatchBank
// and gives its Kind, 2 or 3.
struct BankDialogRequest {
    int mode = 0;
    // The name now standing at a place: mode 1 a combined patch position
    // 0 to 255, mode 4 a combined multiset position 0 to 31, mode 5 a
    // position 0 to 19 of the arpeggiator bank.
    std::function<std::string(int place)> nameAt;
    // Whether a bank Kind is loaded.
    std::function<bool(int kind)> bankLoaded;
    // The place the dialog starts on, numbered as for nameAt.
    int selectedPlace = 0;
    // The name of the item in the editor that goes into the bank.
    std::string newName;
};

class Host {
public:
    virtual ~Host() = default;

    // The place the user chose on the bank Dialog, numbered as its nameAt,
    // or -1 for Cancel. A host with no one to choose cancels.
    virtual int chooseBankPlace(const BankDialogRequest&) { return -1; }

    virtual Answer showMessage(const MessageRequest& request) = 0;

    // A question of a dialogue of several steps (Create Remap) on the
    // program's own MessageBox form: style 3 asks Yes, No or Cancel, style 1
    // OK or Cancel, any other style just tells with OK. A host without that
    // form asks through showMessage.
    virtual Answer askStep(const std::string& title, const std::string& text, int style)
    {
        MessageRequest box;
        box.title = title;
        box.text = text;
        box.icon = MessageIcon::Question;
        box.buttons = style == 3 ? MessageButtons::YesNoCancel : style == 1 ? MessageButtons::OkCancel : MessageButtons::Ok;
        return showMessage(box);
    }

    // The chosen path, or nothing when the user cancels. The open dialog
    // accepts only a file that exists; the save dialog asks before it
    // overwrites one.
    virtual std::optional<std::string> chooseOpenFile(const FileDialogRequest& request) = 0;
    virtual std::optional<std::string> chooseSaveFile(const FileDialogRequest& request) = 0;

    // lblStatus, with its colour, and lblMessage.
    virtual void setStatus(const std::string& text, StatusColour colour) = 0;
    virtual void setMessage(const std::string& text) = 0;
    // lblMessage in a colour of its own, as the name of a performance knob's
    // destination shows in green; a host without colours shows the text.
    virtual void setMessage(const std::string& text, StatusColour colour)
    {
        static_cast<void>(colour);
        setMessage(text);
    }

    // The hourglass pointer for a long operation, and the normal one after.
    virtual void setBusy(bool busy) = 0;
};

// An information box with OK and Help: how the program most often says why
// it did not do what was asked.
inline Answer showInformation(Host& host, const std::string& title, const std::string& text, int helpContext)
{
    MessageRequest box;
    box.title = title;
    box.text = text;
    box.icon = MessageIcon::Information;
    box.buttons = MessageButtons::Ok;
    box.help = true;
    box.helpContext = helpContext;
    return host.showMessage(box);
}

// A Yes/No question with Help; true only for Yes.
inline bool askYesNo(Host& host, const std::string& title, const std::string& question, int helpContext)
{
    MessageRequest box;
    box.title = title;
    box.text = question;
    box.icon = MessageIcon::Question;
    box.buttons = MessageButtons::YesNo;
    box.help = true;
    box.helpContext = helpContext;
    return host.showMessage(box) == Answer::Yes;
}

// Shows the hourglass for as long as it lives, however the operation ends.
class BusyPointer {
public:
    explicit BusyPointer(Host& host) : host_(host) { host_.setBusy(true); }
    ~BusyPointer() { host_.setBusy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    Host& host_;
};

}  // namespace quillon
