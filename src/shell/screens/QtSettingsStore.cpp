#include "shell/screens/QtSettingsStore.h"

#include <QSettings>

namespace quillon {

namespace {

QString keyOf(const std::string& section, const std::string& key)
{
    return QString::fromStdString(section + "/" + key);
}

}  // namespace

std::string QtSettingsStore::read(const std::string& section, const std::string& key) const
{
    return QSettings("Quillon", "Quillon").value(keyOf(section, key)).toString().toStdString();
}

void QtSettingsStore::write(const std::string& section, const std::string& key, const std::string& value)
{
    QSettings("Quillon", "Quillon").setValue(keyOf(section, key), QString::fromStdString(value));
}

}  // namespace quillon
