#include "shell/about_form.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "ui/icons.h"

namespace kelvane {

namespace {

struct Brand {
    const char* software;
    const char* maker;
    const char* web;
};

constexpr std::array<Brand, 3> brands{{
    {"Kelvane", "Orlan Drives - Service Tools", "www.orlan-drives.example"},
    {"Quince PC Software", "Quince - Service Tools", "www.quince.example"},
    {"Juniper PC Software", "Juniper - Service Tools", "www.juniper.example"},
}};

QLabel* addLine(QVBoxLayout* column, const char* name, const QString& text) {
    auto* label = new QLabel(text);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignHCenter);
    column->addWidget(label);
    return label;
}

}  // namespace

TAboutForm::TAboutForm(int BrandVariant, QWidget* parent) : QDialog(parent) {
    const Brand& brand = brands[static_cast<size_t>(std::clamp(BrandVariant, 0, 2))];
    setObjectName(QStringLiteral("TAboutForm"));
    setWindowTitle(QStringLiteral("About"));
    setModal(true);
    auto* column = new QVBoxLayout(this);
    if (BrandVariant == 0) {
        auto* picture = new PictureBox(this);
        picture->setObjectName(QStringLiteral("LogoImage"));
        picture->showLogo();
        column->addWidget(picture, 1);
    }
    QLabel* SoftNameLabel = addLine(column, "SoftNameLabel", QLatin1String(brand.software));
    QFont face = SoftNameLabel->font();
    face.setBold(true);
    face.setPointSizeF(face.pointSizeF() * 1.6);
    SoftNameLabel->setFont(face);
    addLine(column, "SNLabel", QStringLiteral("Released Date : 2008-02-14"));
    addLine(column, "MakerLabel", QLatin1String(brand.maker));
    addLine(column, "WebLabel", QLatin1String(brand.web))
        ->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    QLabel* ThanksLabel =
        addLine(column, "ThanksLabel", QStringLiteral("Thank you for using this software."));
    ThanksLabel->installEventFilter(this);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    column->addWidget(buttons);
}

bool TAboutForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick) Q_EMIT thanksDoubleClicked();
    return QDialog::eventFilter(watched, event);
}

}  // namespace kelvane
