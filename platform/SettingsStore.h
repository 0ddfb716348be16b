#pragma once

#include <QString>

// The per-user settings: an INI file of sections and keys, every value text.
// $LARDERKEEP_CONFIG names the file, else ~/.config/Larderkeep/Larderkeep.ini.
QString GetSetting(const QString& section, const QString& key, const QString& def = QString());
void SaveSetting(const QString& section, const QString& key, const QString& value);
void DeleteSetting(const QString& section, const QString& key);
bool HasSetting(const QString& section, const QString& key);
QString SettingsFilePath();
