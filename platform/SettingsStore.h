#pragma once

#include <QString>
#include <optional>

// The per-user settings: an INI file of sections (groups) and keys under the
// application title "Larderkeep", every value kept as text. $LARDERKEEP_CONFIG
// names the file, else ~/.config/Larderkeep/Larderkeep.ini. The file is looked
// up again whenever the variable changes.
//
// Nothing is held back: each write reaches the disk before it returns, and each
// read looks at the file as it is now, so a value changed by hand or by another
// copy of the program is seen at once.

// The stored text, or `def` when the key is absent. Reading never writes.
QString GetSetting(const QString& section, const QString& key, const QString& def = QString());
// The stored text, or nothing when the key is absent (an empty value is present).
std::optional<QString> FindSetting(const QString& section, const QString& key);
bool HasSetting(const QString& section, const QString& key);

// Raise RuntimeError "Permission denied" when the file cannot be written.
void SaveSetting(const QString& section, const QString& key, const QString& value);
void DeleteSetting(const QString& section, const QString& key);

QString SettingsFilePath();
