#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <functional>

// The handlers behind the main window's menu, toolbar, popup and quick-start
// keys. Each part of the program fills in the keys it answers; the window owns
// the tables of keys and captions and runs what is registered here, every
// handler inside the error trap, so no command can end the program.
class CommandRegistry {
public:
    using Handler = std::function<void()>;

    void Add(const QString& key, Handler handler);
    bool Has(const QString& key) const { return handlers_.contains(key); }
    // Runs the key's handler; a failure becomes the error box for `key`.
    // False when nothing is registered for the key.
    bool Run(const QString& key) const;
    QStringList Keys() const { return handlers_.keys(); }

private:
    QMap<QString, Handler> handlers_;
};
