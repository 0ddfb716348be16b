#pragma once

#include <QString>

// The program folder: the database, dictionary, tips, templates and exports live
// here. $LARDERKEEP_HOME when set, else the per-user data folder
// (~/.local/share/Larderkeep). Read from the environment at each call.
namespace ProgramFolder {

QString Path();

// A file in the program folder. Names may come written "\Name" or "Palm\Add-on";
// leading separators are dropped and backslashes become "/".
QString File(const QString& name);

// A folder inside the program folder ("Export", "Images"); not created here.
QString Subfolder(const QString& name);

// A name usable as a file name on every system: characters a file system
// refuses become "_", and a blank name becomes `fallback`.
QString SafeFileName(const QString& name, const QString& fallback);

}  // namespace ProgramFolder
