#include "shell/screens/frmAbout.h"

#include "midi/backends/MidiSystem.h"
#include "midi/screens/MidiSystemAccess.h"
#include "shell/screens/FormLaunchers.h"

#include <QDialogButtonBox>
#include <QFont>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringList>
#include <QSysInfo>
#include <QVBoxLayout>
#include <QtGlobal>

#include <cstdlib>

namespace quillon {

QString aboutVersionText(int major, int minor, int revision)
{
    return QString("Version %1.%2.%3").arg(major).arg(minor).arg(revision, 3, 10, QChar('0'));
}

QString aboutVersionText()
{
    return aboutVersionText(QUILLON_VERSION_MAJOR, QUILLON_VERSION_MINOR, QUILLON_VERSION_PATCH);
}

std::vector<PlatformFact> platformFacts()
{
    std::vector<PlatformFact> facts;
    const QString system = QSysInfo::prettyProductName();
    if (!system.isEmpty())
        facts.emplace_back("Operating system", system);
    const QString kernel = QSysInfo::kernelType() + " " + QSysInfo::kernelVersion();
    if (!kernel.trimmed().isEmpty())
        facts.emplace_back("Kernel", kernel.trimmed());
    facts.emplace_back("Processor", QSysInfo::currentCpuArchitecture());
    facts.emplace_back("Qt", QString("%1 (built with %2)").arg(qVersion(), QT_VERSION_STR));
    facts.emplace_back("Window system", QGuiApplication::platformName());
    // The MIDI system the program works over now, with the devices it sees.
    const auto devices = [](const std::vector<std::string>& names) {
        QStringList list;
        for (const std::string& name : names)
            list << QString::fromStdString(name);
        return list.isEmpty() ? QString("none") : list.join("; ");
    };
    if (const MidiSystem* system = registeredMidiSystem()) {
        const std::string_view api = midiApiName(system->api());
        facts.emplace_back("MIDI system", QString::fromUtf8(api.data(), static_cast<qsizetype>(api.size())));
        facts.emplace_back("MIDI input devices", devices(midiInputDevices()));
        facts.emplace_back("MIDI output devices", devices(midiOutputDevices()));
    } else {
        facts.emplace_back("MIDI system", "none open");
    }
    if (const char* asked = std::getenv("QUILLON_MIDI_API"); asked != nullptr && *asked != '\0')
        facts.emplace_back("MIDI system asked for (QUILLON_MIDI_API)", QString::fromLocal8Bit(asked));
    return facts;
}

QString systemInformationText(const std::vector<PlatformFact>& facts)
{
    if (facts.empty())
        return "System Information Is Unavailable At This Time";
    QStringList lines;
    for (const auto& [what, value] : facts)
        lines << what + ": " + value;
    return lines.join('\n');
}

frmAbout::frmAbout(QWidget* parent) : QDialog(parent)
{
    setObjectName("frmAbout");
    setWindowTitle(QString("About ") + kApplicationTitle);

    auto* lblTitle = new QLabel(kApplicationTitle, this);
    lblTitle->setObjectName("lblTitle");
    QFont big = lblTitle->font();
    big.setPointSizeF(big.pointSizeF() * 2);
    big.setBold(true);
    lblTitle->setFont(big);
    auto* lblVersion = new QLabel(aboutVersionText(), this);
    lblVersion->setObjectName("lblVersion");
    auto* lblDescription = new QLabel("Sound editor and librarian for the Korg Z1 synthesizer: patches, multisets, "
                                      "arpeggiator patterns and their banks, from files and from the instrument.",
                                      this);
    lblDescription->setObjectName("lblDescription");
    lblDescription->setWordWrap(true);
    auto* lblDisclaimer = new QLabel("Made by the Quillon developers.", this);
    lblDisclaimer->setObjectName("lblDisclaimer");
    lblDisclaimer->setWordWrap(true);

    auto* cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    auto* cmdSysInfo = new QPushButton("&System Info...", this);
    cmdSysInfo->setObjectName("cmdSysInfo");
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo, &QPushButton::clicked, this, &frmAbout::StartSysInfo);

    auto* text = new QVBoxLayout;
    text->addWidget(lblTitle);
    text->addWidget(lblVersion);
    text->addSpacing(12);
    text->addWidget(lblDescription);
    text->addStretch();
    text->addWidget(lblDisclaimer);
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdSysInfo);
    buttons->addStretch();
    auto* whole = new QHBoxLayout(this);
    whole->addLayout(text, 1);
    whole->addSpacing(16);
    whole->addLayout(buttons);
    setMinimumWidth(lblDescription->fontMetrics().horizontalAdvance(QString(60, 'x')));
}

void frmAbout::StartSysInfo()
{
    QDialog info(this);
    info.setObjectName("frmSysInfo");
    info.setWindowTitle("System Information");
    auto* txtSysInfo = new QPlainTextEdit(systemInformationText(platformFacts()), &info);
    txtSysInfo->setObjectName("txtSysInfo");
    txtSysInfo->setReadOnly(true);
    txtSysInfo->setMinimumSize(txtSysInfo->fontMetrics().horizontalAdvance(QString(64, 'x')),
                               txtSysInfo->fontMetrics().lineSpacing() * 12);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &info);
    connect(buttons, &QDialogButtonBox::rejected, &info, &QDialog::reject);
    auto* column = new QVBoxLayout(&info);
    column->addWidget(txtSysInfo);
    column->addWidget(buttons);
    info.exec();
}

void showAboutDialog(QWidget* parent)
{
    frmAbout form(parent);
    form.exec();
}

}  // namespace quillon
