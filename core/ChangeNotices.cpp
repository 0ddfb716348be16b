#include "core/ChangeNotices.h"

ChangeNotices& ChangeNotices::Instance() {
    static ChangeNotices notices;
    return notices;
}
