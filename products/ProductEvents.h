#pragma once

#include <QObject>

// The product class's events: 1 when a product is written, 2 when one is
// deleted. Any open listing hears them, whichever object raised them.
class ProductEvents : public QObject {
    Q_OBJECT
public:
    static ProductEvents& Instance();
    void Raise(int number) { Q_EMIT ProductEvent(number); }

Q_SIGNALS:
    void ProductEvent(int number);
};
