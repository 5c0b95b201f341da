#include "shell/about_form.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QSysInfo>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "ui/icons.h"
#include "ui/named.h"

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

QString detailsIn(const QString& folder) {
    QStringList lines{
        QStringLiteral("Orlan Kelvane 1.30"), TAboutForm::tr("Free software under the MIT licence"),
        TAboutForm::tr("Qt %1, built with %2").arg(QLatin1String(qVersion()), QLatin1String(QT_VERSION_STR)),
        TAboutForm::tr("System: %1, %2")
            .arg(QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture())};
    if (!folder.isEmpty())
        lines << TAboutForm::tr("Settings, backups and looks: %1").arg(QDir::toNativeSeparators(folder));
    lines << TAboutForm::tr("Program: %1")
                 .arg(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
    return lines.join(QLatin1Char('\n'));
}

}  // namespace

TAboutForm::TAboutForm(int BrandVariant, const QString& folder, QWidget* parent) : QDialog(parent) {
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
    const QString details = detailsIn(folder);
    QLabel* DetailsLabel = addLine(column, "DetailsLabel", details);
    DetailsLabel->setAlignment(Qt::AlignLeft);
    DetailsLabel->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    auto* copy = named<QPushButton>("CopyButton", icon(Icon::Copy), tr("&Copy"));
    copy->setToolTip(tr("Copy versions and folders to the clipboard"));
    buttons->addButton(copy, QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this, [details] { QGuiApplication::clipboard()->setText(details); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    column->addWidget(buttons);
}

bool TAboutForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick) Q_EMIT thanksDoubleClicked();
    return QDialog::eventFilter(watched, event);
}

}  // namespace kelvane
