#include "shell/logo_form.h"

#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>

#include "ui/icons.h"

namespace kelvane {

QString systemLanguageName() {
    const QLocale system = QLocale::system();
    const QString language = QLocale::languageToString(system.language());
    const QString territory = QLocale::territoryToString(system.territory());
    return system.territory() == QLocale::AnyTerritory ? language
                                                       : QStringLiteral("%1 (%2)").arg(language, territory);
}

TLogoForm::TLogoForm(const QString& languageName, QWidget* parent) : QWidget(parent, Qt::SplashScreen) {
    setObjectName(QStringLiteral("TLogoForm"));
    setWindowTitle(QStringLiteral("Orlan Kelvane"));
    setWindowIcon(applicationIcon());
    auto* LogoImage = new PictureBox(this);
    LogoImage->setObjectName(QStringLiteral("LogoImage"));
    LogoImage->showLogo();
    auto* Label1 = new QLabel(QStringLiteral("Loading ..."), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    auto* Label2 = new QLabel(QStringLiteral("OS Language -> ") + languageName, this);
    Label2->setObjectName(QStringLiteral("Label2"));
    Label2->setTextFormat(Qt::PlainText);
    auto* column = new QVBoxLayout(this);
    const int room = fontMetrics().height();
    column->setContentsMargins(2 * room, room, 2 * room, room);
    column->addWidget(LogoImage, 1);
    column->addWidget(Label1);
    column->addWidget(Label2);
}

}  // namespace kelvane
