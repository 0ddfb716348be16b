#include "products/ProductEvents.h"

ProductEvents& ProductEvents::Instance() {
    static ProductEvents events;
    return events;
}
