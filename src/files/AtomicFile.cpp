#include "files/AtomicFile.h"

#include <algorithm>
#include <array>
#include <exception>
#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

namespace quillon {

namespace {

#ifdef _WIN32
constexpr const char* kLineEnd = "\r\n";
#else
constexpr const char* kLineEnd = "\n";
#endif

std::filesystem::path temporaryBeside(const std::filesystem::path& path)
{
    std::random_device random;
    std::string name = ".";
    name += path.filename().string();
    name += ".quillon-";
    name += std::to_string(random());
    name += ".tmp";
    return path.parent_path() / name;
}

}  // namespace

bool writeFileAtomically(const std::filesystem::path& path, std::span<const std::uint8_t> bytes)
{
    const std::filesystem::path temporary = temporaryBeside(path);
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        if (!out)
            return false;
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        out.close();
        if (!out) {
            std::error_code ignored;
            std::filesystem::remove(temporary, ignored);
            return false;
        }
    }
    std::error_code error;
    if (std::filesystem::exists(path, error)) {
        // A write-protected file is made writable first, so that it can be
        // replaced as the user asked.
        std::filesystem::permissions(path, std::filesystem::perms::owner_write, std::filesystem::perm_options::add,
                                     error);
    }
    std::filesystem::rename(temporary, path, error);
    if (error) {
        std::error_code ignored;
        std::filesystem::remove(temporary, ignored);
        return false;
    }
    return true;
}

bool writeLinesAtomically(const std::filesystem::path& path, const std::vector<std::string>& lines)
{
    std::string text;
    for (const auto& line : lines) {
        text += line;
        text += kLineEnd;
    }
    return writeFileAtomically(path, std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

bool isReadableFile(const std::filesystem::path& path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error) || error)
        return false;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return !error && size <= kLargestReadableFile;
}

bool readWholeFile(const std::filesystem::path& path, std::vector<std::uint8_t>& bytes)
{
    if (!isReadableFile(path))
        return false;
    try {
        std::ifstream in(path, std::ios::binary);
        if (!in)
            return false;
        // Read a piece at a time into room for the size the file says it
        // has: a file that grew since it was looked at is refused once it
        // passes the limit, rather than read without end.
        std::vector<std::uint8_t> read;
        std::error_code sizeError;
        const std::uintmax_t size = std::filesystem::file_size(path, sizeError);
        read.reserve(sizeError ? 0 : static_cast<std::size_t>(std::min<std::uintmax_t>(size, kLargestReadableFile)));
        std::array<char, 65536> piece;
        while (in) {
            in.read(piece.data(), static_cast<std::streamsize>(piece.size()));
            read.insert(read.end(), piece.data(), piece.data() + in.gcount());
            if (read.size() > kLargestReadableFile)
                return false;
        }
        if (in.bad())
            return false;
        bytes = std::move(read);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool readLines(const std::filesystem::path& path, std::vector<std::string>& lines)
{
    std::vector<std::uint8_t> bytes;
    if (!readWholeFile(path, bytes))
        return false;
    lines.clear();
    std::string line;
    for (const std::uint8_t byte : bytes) {
        if (byte == '\n') {
            if (!line.empty() && line.back() == '\r')
                line.pop_back();
            lines.push_back(std::move(line));
            line.clear();
        } else {
            line += static_cast<char>(byte);
        }
    }
    if (!line.empty()) {
        if (line.back() == '\r')
            line.pop_back();
        lines.push_back(std::move(line));
    }
    return true;
}

}  // namespace quillon
