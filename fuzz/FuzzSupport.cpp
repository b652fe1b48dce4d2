#include "FuzzSupport.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <system_error>
#include <unistd.h>

namespace quillon::fuzz {

Answer QuietHost::showMessage(const MessageRequest& request)
{
    switch (request.buttons) {
    case MessageButtons::Ok: return Answer::Ok;
    case MessageButtons::YesNo: return questionAnswer == Answer::Cancel ? Answer::No : questionAnswer;
    case MessageButtons::YesNoCancel: return questionAnswer;
    case MessageButtons::OkCancel: return questionAnswer == Answer::Cancel ? Answer::Cancel : Answer::Ok;
    }
    return Answer::Ok;
}

namespace {

// The folder, removed with what it holds when the process ends.
struct Scratch {
    std::filesystem::path path;
    Scratch() : path(std::filesystem::temp_directory_path() / ("quillon-fuzz-" + std::to_string(::getpid())))
    {
        std::filesystem::create_directories(path);
    }
    ~Scratch()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
};

}  // namespace

const std::filesystem::path& scratchFolder()
{
    static const Scratch scratch;
    return scratch.path;
}

void writeBytes(const std::filesystem::path& path, std::span<const std::uint8_t> bytes)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

std::uint8_t InputReader::byte()
{
    return empty() ? 0 : data_[pos_++];
}

unsigned InputReader::word()
{
    const unsigned low = byte();
    return low | (static_cast<unsigned>(byte()) << 8);
}

std::span<const std::uint8_t> InputReader::take(std::size_t n)
{
    const std::size_t count = std::min(n, left());
    const std::span<const std::uint8_t> run(data_ + pos_, count);
    pos_ += count;
    return run;
}

std::span<const std::uint8_t> InputReader::rest()
{
    return take(left());
}

}  // namespace quillon::fuzz
