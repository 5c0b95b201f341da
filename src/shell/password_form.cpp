#include "shell/password_form.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "ui/named.h"

namespace kelvane {

namespace {

struct Door {
    LinkOwner window;
    const char* password;
    const char* message;
    void (TPasswordForm::*opened)();
};

constexpr std::array<Door, 2> doors{{
    {OwnerMain, "quillbar", "Edit language function enabled.", &TPasswordForm::languageEnabled},
    {OwnerParameter, "mirto", "Read keypad function enable .", &TPasswordForm::keypadReadEnabled},
}};

}  // namespace

TPasswordForm::TPasswordForm(RequestScheduler& link, const Voice& voice, QWidget* parent)
    : QDialog(parent), m_link(link), m_voice(voice), PasswordEdit(new QLineEdit(this)) {
    setObjectName(QStringLiteral("TPasswordForm"));
    setWindowTitle(QStringLiteral("Password"));
    setModal(true);
    auto* label = captionFor(PasswordEdit, "Label1",
                             QStringLiteral("Input password to enable Language function"), this);
    PasswordEdit->setObjectName(QStringLiteral("PasswordEdit"));
    PasswordEdit->setAccessibleName(windowTitle());
    PasswordEdit->setEchoMode(QLineEdit::Password);
    auto* column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(PasswordEdit);
    auto* buttons =
        named<QDialogButtonBox>("ButtonBox", QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &TPasswordForm::enterPressed);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void TPasswordForm::enterPressed() {
    PasswordEdit->setFocus();
    const QString text = PasswordEdit->text();
    PasswordEdit->clear();
    const auto door = std::find_if(doors.begin(), doors.end(), [&](const Door& row) {
        return m_link.owner().is(row.window) && text == QLatin1String(row.password);
    });
    if (door != doors.end()) {
        m_voice.person.tell(QLatin1String(door->message), QStringLiteral("Success"));
        accept();
        Q_EMIT(this->*door->opened)();
        return;
    }
    const BoxAnswer answer =
        m_voice.person.box(QStringLiteral("Password incorrect. Try again?"), QStringLiteral("Cofirm"),
                           BoxIcon::Question, BoxButtons::RetryCancel);
    if (answer == BoxAnswer::Cancel) reject();
}

void TPasswordForm::done(int result) {
    PasswordEdit->clear();
    QDialog::done(result);
}

}  // namespace kelvane
