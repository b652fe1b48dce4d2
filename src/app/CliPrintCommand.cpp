#include "app/CliCommands.h"

#include "app/CliArguments.h"
#include "app/CliSession.h"
#include "model/Kind.h"
#include "output/Printing.h"
#include "output/screens/QtPrinter.h"

#include <QByteArray>
#include <QGuiApplication>

#include <memory>

namespace quillon {

namespace {

constexpr const char* kPrintUsage = "usage: quillon-cli print FILE [--member N] --pdf OUT.pdf\n";

// Takes "--pdf OUT" out of the arguments; false when it is missing, given
// twice or has no file.
bool takePdfPath(std::vector<std::string>& args, std::string& pdf)
{
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] != "--pdf")
            continue;
        if (!pdf.empty() || i + 1 >= args.size())
            return false;
        pdf = args[i + 1];
        args.erase(args.begin() + static_cast<std::ptrdiff_t>(i), args.begin() + static_cast<std::ptrdiff_t>(i) + 2);
        --i;
    }
    return !pdf.empty();
}

bool isBank(int kind)
{
    return kind == kPatchBankA || kind == kPatchBankB || kind == kMultiBankA || kind == kMultiBankB ||
           kind == kArpBank;
}

// The pages are laid out with the fonts of the toolkit, which needs an
// application object; the offscreen platform needs no display.
std::unique_ptr<QGuiApplication> startFonts()
{
    if (QCoreApplication::instance() != nullptr)
        return nullptr;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "quillon-cli";
    static char* argv[] = {name, nullptr};
    return std::make_unique<QGuiApplication>(argc, argv);
}

}  // namespace

int runPrint(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    std::vector<std::string> rest = args;
    std::string pdf;
    FileArguments parsed;
    if (!takePdfPath(rest, pdf) || !parseFileArguments(rest, parsed) || parsed.paths.size() != 1 || parsed.json) {
        err << kPrintUsage;
        return kExitUsage;
    }
    CliSession session;
    std::string error;
    const auto opened = session.open(parsed.paths.front(), error);
    if (!opened) {
        err << error << '\n';
        return error.starts_with("cannot read") ? kExitUsage : kExitBadData;
    }
    int kind = *opened;
    if (parsed.member || !isBank(kind)) {
        const auto item = session.takeItem(kind, parsed.member, error);
        if (!item) {
            err << parsed.paths.front() << ": " << error << '\n';
            return error.starts_with("--member") ? kExitUsage : kExitBadData;
        }
        kind = *item;
    }
    const Printout printout = wholeItemPrintout(session.model(), kind);
    if (printout.lines.empty()) {
        err << parsed.paths.front() << ": nothing to print\n";
        return kExitBadData;
    }

    const auto application = startFonts();
    QtPrinter printer(QString::fromStdString(pdf));
    if (printer.print(printout.title, printout.lines) != PrintOutcome::Printed) {
        err << pdf << ": cannot write the PDF file\n";
        return kExitUsage;
    }
    out << pdf << '\n';
    return kExitOk;
}

}  // namespace quillon
