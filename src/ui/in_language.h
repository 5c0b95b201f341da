// Texts that engines make are English and hold values; a window shows them in the language in use.
#pragma once

#include <QCoreApplication>

namespace kelvane {

// The context under which a catalogue also looks for texts with values in them.
inline constexpr char EngineTexts[] = "kelvane::EngineTexts";

// English where the language in use has no such text.
inline QString inLanguage(const QString& english) {
    return english.isEmpty() ? english
                             : QCoreApplication::translate(EngineTexts, english.toUtf8().constData());
}

}  // namespace kelvane
