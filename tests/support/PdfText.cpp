#include "support/PdfText.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <sys/wait.h>

namespace quillon {

std::string pdfText(const std::filesystem::path& pdf)
{
    const std::string command = "pdftotext -layout '" + pdf.string() + "' - 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        ADD_FAILURE() << "cannot run pdftotext";
        return {};
    }
    std::string text;
    char buffer[4096];
    std::size_t n = 0;
    while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
        text.append(buffer, n);
    const int status = pclose(pipe);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        ADD_FAILURE() << "pdftotext failed on " << pdf
                      << (WIFEXITED(status) && WEXITSTATUS(status) == 127
                              ? ": pdftotext is missing (tools/install-deps installs poppler-utils)"
                              : ": " + text);
        return {};
    }
    return text;
}

std::string collapsedBlanks(const std::string& text)
{
    std::string out;
    for (char c : text) {
        const bool blank = c == ' ' || c == '\t';
        if (blank && (out.empty() || out.back() == ' '))
            continue;
        out += blank ? ' ' : c;
    }
    while (!out.empty() && out.back() == ' ')
        out.pop_back();
    return out;
}

bool linesInOrder(const std::string& text, const std::vector<std::string>& lines, std::string& missing)
{
    std::vector<std::string> read;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        // A form feed begins the line of each new page.
        std::erase(line, '\f');
        read.push_back(collapsedBlanks(line));
    }
    std::size_t at = 0;
    for (const std::string& line : lines) {
        const std::string wanted = collapsedBlanks(line);
        if (wanted.empty())
            continue;
        while (at < read.size() && read[at] != wanted)
            ++at;
        if (at == read.size()) {
            missing = wanted;
            return false;
        }
        ++at;
    }
    return true;
}

}  // namespace quillon
