#pragma once

#include "platform/Report.h"

#include <QString>

// The printed message: its subject as the title, then for each row of that
// title its date and its whole text. Read on a connection of its own to the
// database file the settings name, as every printed report is.
class rptMessage {
public:
    QString MessageTitle;

    Report Build() const;
};
