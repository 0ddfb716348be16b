#pragma once

#include <QImage>
#include <QString>

class QLabel;

// The manufacturer part of a product's UPC-A barcode: the five characters
// after the number-system digit, or "" for anything shorter than 12.
QString GetManufacturerCode(const QString& barcode);

// The Code 39 pattern of one character code: per bar "1" narrow or "2" wide, a
// blank where the space before the next bar is wide. Codes above "Z" read as
// "Z"; characters without a symbol give "".
QString Code39Pattern(int code);

// Draws the text as a Code 39 symbol, with the text centred under the bars, on
// the picture's whole face, shows it there and puts it on the clipboard.
// Returns the image drawn.
QImage DrawBarcode(const QString& text, QLabel* picture);
