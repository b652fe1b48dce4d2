#pragma once

#include "files/SettingsStore.h"
#include "shell/Host.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quillon::fuzz {

// A Host that answers every box and dialog without a person: questions
// with the answer it was given, the open dialog with the file it was given,
// the save dialog with Cancel. Nothing is recorded, so that a long run does
// not grow.
class QuietHost : public Host {
public:
    Answer questionAnswer = Answer::No;
    std::optional<std::string> openPath;

    Answer showMessage(const MessageRequest& request) override;
    std::optional<std::string> chooseOpenFile(const FileDialogRequest&) override { return openPath; }
    std::optional<std::string> chooseSaveFile(const FileDialogRequest&) override { return std::nullopt; }
    void setStatus(const std::string&, StatusColour) override {}
    void setMessage(const std::string&) override {}
    void setBusy(bool) override {}
};

// A folder of its own for this process, made on first use and removed when
// the process ends: the targets overwrite the same few files on every input.
const std::filesystem::path& scratchFolder();

// Writes the bytes as the whole file.
void writeBytes(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

// Reads the input from the front, a byte or a run of bytes at a time; past
// its end everything reads as zero.
class InputReader {
public:
    InputReader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    bool empty() const { return pos_ >= size_; }
    std::size_t left() const { return empty() ? 0 : size_ - pos_; }
    std::uint8_t byte();
    // A number of two bytes, low byte first.
    unsigned word();
    // Up to n bytes.
    std::span<const std::uint8_t> take(std::size_t n);
    // Everything not read yet.
    std::span<const std::uint8_t> rest();

private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t pos_ = 0;
};

}  // namespace quillon::fuzz
