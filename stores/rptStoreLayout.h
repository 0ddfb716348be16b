#pragma once

#include "platform/Report.h"

#include <QString>

// A store's walk on paper: its aisles in order, each with its categories and
// how many products they hold, and the products shelved apart.
namespace rptStoreLayout {
Report Build(const QString& store);
}
