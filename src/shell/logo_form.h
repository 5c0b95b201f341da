// TLogoForm, the splash: the first window of a start, closed once the main window is up. The language table
// that the plant keeps here lives in the shell, which fills it while this window stands.
#pragma once

#include <QWidget>

namespace kelvane {

// Name of the system's language, for a person: "German (Germany)".
QString systemLanguageName();

class TLogoForm : public QWidget {
    Q_OBJECT
   public:
    explicit TLogoForm(const QString& languageName = systemLanguageName(), QWidget* parent = nullptr);
};

}  // namespace kelvane
