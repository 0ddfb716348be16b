#pragma once

#include <QString>
#include <exception>
#include <utility>

// Shows "Error: <description> (Occurred in <where>)" under the title "Error".
// Every procedure that traps its errors reports through here.
void ReportError(const std::exception& e, const QString& where);
// The same box for callers whose wording differs ("Occurring in", a leading ". ").
void ReportErrorText(const QString& text, const QString& title = QStringLiteral("Error"));
QString ErrorDescription(const std::exception& e);

// Runs body; on a run-time error reports it for `where` and gives `fallback`, the
// procedure's default result.
template <class T, class F>
T Trap(const QString& where, T fallback, F&& body) {
    try {
        return std::forward<F>(body)();
    } catch (const std::exception& e) {
        ReportError(e, where);
        return fallback;
    }
}

template <class F>
void Trap(const QString& where, F&& body) {
    try {
        std::forward<F>(body)();
    } catch (const std::exception& e) {
        ReportError(e, where);
    }
}

// For the procedures whose report reads otherwise ("Occurring in", a leading
// ". "): the box says "Error: <description><tail>".
template <class T, class F>
T TrapTail(const QString& tail, T fallback, F&& body) {
    try {
        return std::forward<F>(body)();
    } catch (const std::exception& e) {
        ReportErrorText(QStringLiteral("Error: ") + ErrorDescription(e) + tail);
        return fallback;
    }
}
