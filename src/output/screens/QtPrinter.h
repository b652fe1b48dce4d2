#pragma once

#include "output/Printer.h"

#include <QString>

class QPrinter;

namespace quillon {

// The system's printer for the program's text printouts: the lines are set
// in the system's fixed-pitch font, page after page. Made with no file, it
// asks with the system's print dialog over the active window; made with a
// PDF file, it writes the pages to that file with no dialog, which works with
// no printer installed and no display.
class QtPrinter : public Printer {
public:
    QtPrinter() = default;
    explicit QtPrinter(QString pdfPath);

    PrintOutcome print(const std::string& title, const std::vector<std::string>& lines) override;

private:
    QString pdfPath_;
};

// Sets the lines on the printer's pages in the system's fixed-pitch font,
// a new page whenever one is full. False when the printer cannot be opened.
bool printLinesOnPages(QPrinter& printer, const std::vector<std::string>& lines);

}  // namespace quillon
