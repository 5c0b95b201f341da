// Letters of translated captions: a translation takes over that there is a letter, but two of a window or of
// a menu may then begin alike.
#pragma once

class QWidget;

namespace kelvane {

// Moves the mark of captions that our catalogues have translated to a letter that is free in their menu or
// their window, or takes it out. Captions of code and of language files keep theirs.
void giveEachLetterOnce(QWidget& window);

}  // namespace kelvane
