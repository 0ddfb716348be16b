#pragma once

#include <QString>
#include <QStringList>

// What an installer would do: on the very first start the program folder does not
// exist yet, and is made with the starting database and files.
namespace FirstStart {

// Creates and fills the program folder when it is missing. Returns false and sets
// `error` (a message naming the folder) when the folder cannot be made or filled.
bool Run(QString* error);

// Fills `folder` with the starting files; the folder must exist.
void Seed(const QString& folder);

// Builds a fresh database from the shipped schema and reference data. Building
// takes a moment, so the first result is kept and later calls copy it.
void CreateTemplateDatabase(const QString& path);

// The schema script followed by the reference-data scripts, in load order.
QStringList TemplateScripts();

// The system word list as the spell checker's dictionary (one word a line, CR LF).
bool WriteDictionary(const QString& path);

}  // namespace FirstStart
