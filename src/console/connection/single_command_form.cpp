#include "console/connection/single_command_form.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

#include "console/connection/console_fields_form.h"
#include "ui/icons.h"
#include "ui/named.h"
#include "ui/string_grid_view.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int KeptTexts = 100;
const QString HexKeys = QStringLiteral("[0-9A-F.]*");

}  // namespace

SingleCommandPage::SingleCommandPage(AdvanceConsole& console, QWidget* parent)
    : QWidget(parent), m_console(console) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(buildFixed());
    column->addWidget(buildAny());
    RxAdvStringGrid = named<StringGridView>("RxAdvStringGrid", this);
    RxAdvStringGrid->setAccessibleName(QStringLiteral("Words of the last read"));
    RxAdvStringGrid->setGrid(&m_console.RxAdvStringGrid);
    RxAdvStringGrid->setColumnCharacters({7, 8, 8, 23, 7});
    RxAdvStringGrid->setStretchColumn(3);
    column->addWidget(RxAdvStringGrid, 1);
    showState();
}

QWidget* SingleCommandPage::buildFixed() {
    auto* group = named<QGroupBox>("FixedGroupBox", QStringLiteral("Command from fields"), this);
    IDLabeledEdit = keyedEdit("IDLabeledEdit", QStringLiteral("[0-9]*"), group);
    OptionComboBox = named<QComboBox>("OptionComboBox", group);
    OptionComboBox->addItems({QStringLiteral("Read"), QStringLiteral("Write")});
    AddressLabeledEdit = keyedEdit("AddressLabeledEdit", HexKeys, group);
    DataLabeledEdit = keyedEdit("DataLabeledEdit", HexKeys, group);
    ChangeHDButton = named<QToolButton>("ChangeHDButton", group);
    ChangeHDButton->setToolTip(QStringLiteral("D: the field is decimal, H: it is hexadecimal"));
    SendFixTransparentButton =
        framedButton("SendFixTransparentButton", Icon::Start, QStringLiteral("Send"), group);
    SendFixTransparentButton->setToolTip(QStringLiteral("Send the command that the fields make"));

    auto* grid = new QGridLayout(group);
    grid->addWidget(captionFor(IDLabeledEdit, "IDLabel", QStringLiteral("&ID"), group), 0, 0);
    grid->addWidget(captionFor(OptionComboBox, "OptionLabel", QStringLiteral("&Option"), group), 0, 1);
    grid->addWidget(captionFor(AddressLabeledEdit, "AddressLabel", QStringLiteral("&Address"), group), 0, 2);
    DataLabel = captionFor(DataLabeledEdit, "DataLabel", {}, group);
    grid->addWidget(DataLabel, 0, 3);
    const std::array<QWidget*, 6> fields{IDLabeledEdit,   OptionComboBox, AddressLabeledEdit,
                                         DataLabeledEdit, ChangeHDButton, SendFixTransparentButton};
    for (size_t i = 0; i < fields.size(); ++i) grid->addWidget(fields[i], 1, static_cast<int>(i));

    connect(IDLabeledEdit, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_console.IDLabeledEdit = text; });
    connect(AddressLabeledEdit, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_console.AddressLabeledEdit = text; });
    connect(DataLabeledEdit, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_console.DataLabeledEdit = text; });
    connect(OptionComboBox, &QComboBox::activated, this, [this](int item) {
        m_console.writeOption = item == 1;
        showState();
    });
    connect(ChangeHDButton, &QToolButton::clicked, this, [this] {
        m_console.hexData = !m_console.hexData;
        showState();
    });
    connect(SendFixTransparentButton, &QToolButton::clicked, &m_console,
            &AdvanceConsole::SendFixTransparentButtonClick);
    for (QLineEdit* edit : {IDLabeledEdit, AddressLabeledEdit, DataLabeledEdit})
        connect(edit, &QLineEdit::returnPressed, SendFixTransparentButton, &QToolButton::click);
    IDLabeledEdit->setText(m_console.IDLabeledEdit);
    AddressLabeledEdit->setText(m_console.AddressLabeledEdit);
    DataLabeledEdit->setText(m_console.DataLabeledEdit);
    return group;
}

QWidget* SingleCommandPage::buildAny() {
    auto* group = named<QGroupBox>("AnyGroupBox", QStringLiteral("Any text"), this);
    InputDataEdit = named<QLineEdit>("InputDataEdit", group);
    InputDataEdit->setAccessibleName(QStringLiteral("Text to send"));
    raiseAsTyped(InputDataEdit);
    SendAnyTransparentButton =
        framedButton("SendAnyTransparentButton", Icon::Start, QStringLiteral("Send"), group);
    SendAnyTransparentButton->setToolTip(QStringLiteral("Send the text as it stands"));
    InputDataComboBox = named<QComboBox>("InputDataComboBox", group);
    InputDataComboBox->setAccessibleName(QStringLiteral("Texts that were sent"));
    InputDataComboBox->setToolTip(
        QStringLiteral("Texts that were sent; one that is chosen comes back into the field"));
    InputDataComboBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* grid = new QGridLayout(group);
    grid->addWidget(captionFor(InputDataEdit, "InputDataLabel", QStringLiteral("Text"), group), 0, 0);
    grid->addWidget(InputDataEdit, 0, 1);
    grid->addWidget(SendAnyTransparentButton, 0, 2);
    grid->addWidget(InputDataComboBox, 1, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    connect(SendAnyTransparentButton, &QToolButton::clicked, this, [this] { sendAny(false); });
    connect(InputDataEdit, &QLineEdit::returnPressed, this, [this] { sendAny(true); });
    connect(InputDataComboBox, &QComboBox::textActivated, InputDataEdit, &QLineEdit::setText);
    return group;
}

void SingleCommandPage::sendAny(bool byEnter) {
    const QString text = InputDataEdit->text();
    if (byEnter) InputDataEdit->selectAll();
    if (byEnter ? !m_console.InputDataEditEnter(text) : text.isEmpty()) return;
    if (!byEnter) m_console.SendAnyTransparentButtonClick(text);
    InputDataComboBox->insertItem(0, text);
    InputDataComboBox->setCurrentIndex(0);
    if (InputDataComboBox->count() > KeptTexts) InputDataComboBox->removeItem(KeptTexts);
}

void SingleCommandPage::showState() {
    const bool free = !m_console.running();
    SendFixTransparentButton->setEnabled(free);
    SendAnyTransparentButton->setEnabled(free);
    InputDataEdit->setEnabled(free);
    DataLabel->setText(m_console.writeOption ? QStringLiteral("&Data") : QStringLiteral("&Length"));
    ChangeHDButton->setText(m_console.hexData ? QStringLiteral("H") : QStringLiteral("D"));
}

}  // namespace kelvane
