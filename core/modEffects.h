#pragma once

#include <QList>
#include <QRect>
#include <QtGlobal>

class QWidget;

// Windows that remember where the user left them. The place is kept under the
// window's object name (its class name when it has none): top and left are the
// frame's position, height and width the window's own size, in pixels.

// Puts back each of top, height, width, left that was saved; a stored 0 counts
// as never saved, so a window once saved at the very top edge opens at its
// default place.
void RestoreFormPosition(QWidget* form);

void SaveFormPosition(QWidget* form, qint32 top, qint32 height, qint32 width, qint32 left);

// The opening effect of the tool windows. With ALLOW_EXPLODE off it only puts
// the window back where it was saved. Otherwise it does that, then grows a
// solid rectangle in the window's colour on the screen from the centre of the
// window's place to its full size, in ExplodeSteps(rate) steps; the caller
// shows the window after it (modal or not, through the dialog service).
void ExplodeForm(QWidget* form, qint16 rate);
// The closing effect, the same in reverse: the window is hidden first and the
// rectangle shrinks to the centre. With ALLOW_EXPLODE off it does nothing; the
// caller closes the window either way.
void ImplodeForm(QWidget* form, qint16 rate);

// A higher rate is faster: fewer, larger steps. 500 (the default) gives 10.
int ExplodeSteps(qint16 rate);
// The rectangles of the growth, smallest first, the last one `target` itself.
QList<QRect> ExplodeFrames(const QRect& target, int steps);
// Where a window will stand when shown: its saved or set place, else centred
// over its owner's window (as dialogs are), else where it is.
QRect TargetRect(QWidget* form);
