#pragma once

#include <QString>
#include <stdexcept>

// The run-time errors of the program's value rules. Their descriptions are
// fixed texts, because message boxes and callers compare against them.
class RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(const QString& description) : std::runtime_error(description.toStdString()) {}
    QString description() const { return QString::fromUtf8(what()); }
};

namespace Err {
inline const QString SubscriptOutOfRange = QStringLiteral("Subscript out of range");
inline const QString TypeMismatch = QStringLiteral("Type mismatch");
inline const QString Overflow = QStringLiteral("Overflow");
inline const QString InvalidUseOfNull = QStringLiteral("Invalid use of Null");
inline const QString DivisionByZero = QStringLiteral("Division by zero");
inline const QString ItemNotFound =
    QStringLiteral("Item cannot be found in the collection corresponding to the requested name or ordinal.");
inline const QString FieldTooSmall =
    QStringLiteral("The field is too small to accept the amount of data you attempted to add.");
inline const QString NotUpdatable = QStringLiteral(
    "Current Recordset does not support updating. This may be a limitation of the provider, or of the selected "
    "locktype.");
inline const QString NoCurrentRecord = QStringLiteral(
    "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current "
    "record.");
inline const QString ClosedRecordset = QStringLiteral("Operation is not allowed when the object is closed.");
inline const QString ForwardOnly = QStringLiteral("Rowset does not support fetching backward.");
}  // namespace Err

// Errors reported by the database engine, carrying its own description.
class DbError : public RuntimeError {
public:
    using RuntimeError::RuntimeError;
};
