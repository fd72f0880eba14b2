#include "compose/screens/EditorAddressSheet.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

EditorAddressSheet::EditorAddressSheet(const QString &title, const QString &example, QWidget *parent)
    : Sheet(title, {}, parent)
    , m_address(new QLineEdit) {
    setAttribute(Qt::WA_DeleteOnClose);
    m_address->setPlaceholderText(example);
    m_address->setAccessibleName(title);
    m_address->setMinimumWidth(340);
    m_address->setInputMethodHints(Qt::ImhUrlCharactersOnly);
    column()->addWidget(m_address);
    connect(addButton(tr("Cancel")), &QPushButton::clicked, this, &QDialog::reject);
    connect(addButton(tr("Insert"), ButtonRole::primary), &QPushButton::clicked, this, &EditorAddressSheet::insert);
    m_address->setFocus();
}

void EditorAddressSheet::insert() {
    if (const auto address = m_address->text(); !address.isEmpty())
        Q_EMIT inserted(address);
    accept();
}
