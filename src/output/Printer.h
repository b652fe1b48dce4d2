#pragma once

#include <string>
#include <vector>

namespace quillon {

// What a printout came to: on paper (or in its file), left by the user at
// the print dialog, or refused by the printer.
enum class PrintOutcome { Printed, Cancelled, Failed };

// The printer the program sends its text printouts to: a title for the job
// and lines of text set in a fixed-pitch font, so that the columns that the
// value formats make stand straight. The program uses the system's printer
// with its print dialog; tests collect the lines.
class Printer {
public:
    virtual ~Printer() = default;

    virtual PrintOutcome print(const std::string& title, const std::vector<std::string>& lines) = 0;
};

}  // namespace quillon
