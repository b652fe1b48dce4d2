#pragma once

#include "files/SettingsStore.h"

namespace quillon {

// The per-user store of the platform, through QSettings (organisation and
// application "Quillon").
class QtSettingsStore : public SettingsStore {
public:
    std::string read(const std::string& section, const std::string& key) const override;
    void write(const std::string& section, const std::string& key, const std::string& value) override;
};

}  // namespace quillon
