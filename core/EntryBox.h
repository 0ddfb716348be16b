#pragma once

#include <QString>

class QComboBox;
class QWidget;

// A box the person may type into or pick from: what is typed is never added
// to the list, and the box is wide enough for `chars` characters.
QComboBox* EntryBox(const QString& name, QWidget* parent, int chars = 24);
