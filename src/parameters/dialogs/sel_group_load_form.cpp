#include "parameters/dialogs/sel_group_load_form.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <algorithm>

#include "ui/icons.h"
#include "ui/transparent_button.h"

namespace kelvane {

TSelGroupLoadForm::TSelGroupLoadForm(ParameterReader& reader, QWidget* parent)
    : SelForm("TSelGroupLoadForm", QStringLiteral("Select Group(s) to Load"), parent),
      m_reader(reader),
      GrpNameCheckListBox(new QListWidget(this)) {
    GrpNameCheckListBox->setObjectName(QStringLiteral("GrpNameCheckListBox"));
    auto* label = new QLabel(QStringLiteral("&Groups"), this);
    label->setBuddy(GrpNameCheckListBox);
    auto* SelAllTransparentButton =
        framedButton("SelAllTransparentButton", Icon::Add, QStringLiteral("Select All"), this);
    auto* CancelAllTransparentButton =
        framedButton("CancelAllTransparentButton", Icon::Remove, QStringLiteral("Cancel All"), this);
    auto* all = new QHBoxLayout;
    all->addWidget(SelAllTransparentButton);
    all->addWidget(CancelAllTransparentButton);
    all->addStretch();
    content()->addWidget(label);
    content()->addWidget(GrpNameCheckListBox, 1);
    content()->addLayout(all);
    for (QWidget* field :
         QList<QWidget*>{GrpNameCheckListBox, SelAllTransparentButton, CancelAllTransparentButton})
        inTabOrder(field);
    connect(SelAllTransparentButton, &QToolButton::clicked, this, [this] { checkAll(true); });
    connect(CancelAllTransparentButton, &QToolButton::clicked, this, [this] { checkAll(false); });
    connect(&m_reader, &ParameterReader::started, this, &TSelGroupLoadForm::showGroups);
    connect(&m_reader, &ParameterReader::screenChanged, this, &TSelGroupLoadForm::showGroups);
}

void TSelGroupLoadForm::ask(std::function<void(std::optional<std::vector<GroupCheck>>)> then) {
    showGroups();
    begin([this, then = std::move(then)](bool byOk) {
        if (!byOk) {
            showGroups();
            return then(std::nullopt);
        }
        const size_t groups =
            std::min(m_reader.GrpNameCheckListBox.size(), static_cast<size_t>(GrpNameCheckListBox->count()));
        for (size_t G = 0; G < groups; ++G)
            m_reader.GrpNameCheckListBox[G].checked =
                GrpNameCheckListBox->item(static_cast<int>(G))->checkState() == Qt::Checked;
        then(m_reader.GrpNameCheckListBox);
    });
}

void TSelGroupLoadForm::showGroups() {
    GrpNameCheckListBox->clear();
    for (const GroupCheck& group : m_reader.GrpNameCheckListBox) {
        auto* item = new QListWidgetItem(group.name, GrpNameCheckListBox);
        item->setCheckState(group.checked ? Qt::Checked : Qt::Unchecked);
    }
}

void TSelGroupLoadForm::checkAll(bool checked) {
    for (int row = 0; row < GrpNameCheckListBox->count(); ++row)
        GrpNameCheckListBox->item(row)->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

}  // namespace kelvane
