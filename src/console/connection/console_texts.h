// Texts of the console that several of its pages make: numbers as hexadecimal digits, the four renderings of
// a word, the caption of a time-out, and the window's title.
#pragma once

#include <QString>

#include "link/com_setup.h"

namespace kelvane {

QString hexWord(quint16 word);  // "1234"
// "0001.0010-0011.0100": high byte first.
QString binaryWord(quint16 word);
// The word's two bytes as characters, high byte first.
QString asciiWord(quint16 word);

// Caption of a time-out button for a text that was typed: "500 ms", "1.500", "100 s".
QString timeOutCaption(const QString& text);

// Title of the window from the texts of com setup's boxes.
QString advanceCaption(const ComSetup::Shown& boxes);
// The same from what the port has; mode and parity still from the boxes.
QString advanceCaption(const ComSetup::Shown& boxes, const PortSettings& port);

}  // namespace kelvane
