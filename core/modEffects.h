#pragma once

#include <QtGlobal>

class QWidget;

// Windows that remember where the user left them. The place is kept under the
// window's object name (its class name when it has none): top and left are the
// frame's position, height and width the window's own size, in pixels.

// Puts back each of top, height, width, left that was saved; a stored 0 counts
// as never saved, so a window once saved at the very top edge opens where it
// was designed to.
void RestoreFormPosition(QWidget* form);

void SaveFormPosition(QWidget* form, qint32 top, qint32 height, qint32 width, qint32 left);
