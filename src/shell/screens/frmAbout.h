#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

namespace quillon {

inline constexpr const char* kApplicationTitle = "Quillon";

// "Version ", the major number, a point, the minor number, a point and the
// revision in three digits: "Version 1.2.005".
QString aboutVersionText(int major, int minor, int revision);
// The version of this program in that form.
QString aboutVersionText();

// One fact about the computer the program runs on: what it is and its value.
using PlatformFact = std::pair<QString, QString>;

// The facts the system information shows: the operating system, the
// toolkit, the MIDI systems and devices.
std::vector<PlatformFact> platformFacts();

// The text of the system information: one fact a line, or "System
// Information Is Unavailable At This Time" when there are none.
QString systemInformationText(const std::vector<PlatformFact>& facts);

// The About box: the program's title, what it is for, its makers and its
// version, with the system information one click away.
class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent = nullptr);

    // Shows the facts of the platform in a window of their own.
    void StartSysInfo();
};

}  // namespace quillon
