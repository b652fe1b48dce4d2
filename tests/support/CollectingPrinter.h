#pragma once

#include "output/Printer.h"

#include <string>
#include <vector>

namespace quillon {

// A printer for tests: keeps each job's title and lines, and answers as the
// test tells it (printed, unless the user is to cancel or the printer fail).
class CollectingPrinter : public Printer {
public:
    struct Job {
        std::string title;
        std::vector<std::string> lines;
    };

    PrintOutcome print(const std::string& title, const std::vector<std::string>& lines) override
    {
        jobs.push_back({title, lines});
        return outcome;
    }

    PrintOutcome outcome = PrintOutcome::Printed;
    std::vector<Job> jobs;
};

}  // namespace quillon
