#pragma once

#include <map>
#include <string>
#include <utility>

namespace quillon {

// The per-user store of the platform, with sections and keys: "Recent files"
// and "Folders". An absent key reads as the empty text.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    virtual std::string read(const std::string& section, const std::string& key) const = 0;
    virtual void write(const std::string& section, const std::string& key, const std::string& value) = 0;
};

// A store held in memory, for tests and for quillon-cli, which remembers
// nothing between runs.
class MemorySettingsStore : public SettingsStore {
public:
    std::string read(const std::string& section, const std::string& key) const override
    {
        const auto found = values_.find({section, key});
        return found == values_.end() ? std::string() : found->second;
    }

    void write(const std::string& section, const std::string& key, const std::string& value) override
    {
        values_[{section, key}] = value;
    }

private:
    std::map<std::pair<std::string, std::string>, std::string> values_;
};

}  // namespace quillon
