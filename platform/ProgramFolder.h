#pragma once

#include <QString>

// The program folder: where the database, dictionary, tips and exports live.
// $LARDERKEEP_HOME when set, else ~/.local/share/Larderkeep.
namespace ProgramFolder {
QString Path();
QString File(const QString& name);
QString Subfolder(const QString& name);
}  // namespace ProgramFolder
