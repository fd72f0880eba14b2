#include "compose/screens/ComposeFields.h"

#include "compose/screens/ContactSuggestions.h"
#include "compose/screens/FileDrag.h"
#include "ui/screens/ThemeLabel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

void setText(QLineEdit *field, const QString &text) {
    if (field->text() == text)
        return;
    field->setText(text);
    // Of many recipients the first are to be seen.
    if (!field->hasFocus())
        field->setCursorPosition(0);
}

} // namespace

void ComposeFields::Row::setVisible(bool isVisible) const {
    label->setVisible(isVisible);
    field->setVisible(isVisible);
}

ComposeFields::ComposeFields(std::shared_ptr<ComposeState> state, QWidget *parent)
    : QWidget(parent)
    , m_state(std::move(state))
    , m_rows(new QGridLayout(this)) {
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setHorizontalSpacing(12);
    m_rows->setVerticalSpacing(8);
    m_rows->setColumnStretch(1, 1);
    m_from = addRow(tr("From"), new QComboBox, m_fromRow);
    m_to = addTextRow(tr("To"), m_toRow);
    m_to->setPlaceholderText(tr("Recipients"));
    m_cc = addTextRow(tr("Cc"), m_ccRow);
    m_bcc = addTextRow(tr("Bcc"), m_bccRow);
    m_subject = addTextRow(tr("Subject"), m_subjectRow);
    m_suggestions = new ContactSuggestions(m_state, m_to);

    connect(m_from, &QComboBox::activated, this, &ComposeFields::chooseSender);
    connect(m_to, &QLineEdit::textEdited, m_state.get(), &ComposeState::recipientsEdited);
    connectField(m_cc, &ComposeViewModel::cc);
    connectField(m_bcc, &ComposeViewModel::bcc);
    connectField(m_subject, &ComposeViewModel::subject);
    connect(m_subject, &QLineEdit::returnPressed, this, &ComposeFields::textRequested);
    m_subject->installEventFilter(this);
    observe(m_state.get(), this, &ComposeFields::render);
}

template <typename Field> Field *ComposeFields::addRow(const QString &label, Field *field, Row &row) {
    const int number = m_rows->rowCount();
    row = {new ThemeLabel(label, TextStyle::subheadline, TextRole::secondary), field};
    row.label->setBuddy(field);
    field->setAccessibleName(label);
    m_rows->addWidget(row.label, number, 0, Qt::AlignRight | Qt::AlignVCenter);
    m_rows->addWidget(field, number, 1);
    return field;
}

QLineEdit *ComposeFields::addTextRow(const QString &label, Row &row) {
    auto *field = addRow(label, new QLineEdit, row);
    leaveFilesToScreen(field);
    connect(field, &QLineEdit::textEdited, this, [this] { m_isUntouched = false; });
    return field;
}

void ComposeFields::connectField(QLineEdit *field, Published<QString> ComposeViewModel::*text) {
    auto *message = m_state->viewModel.get();
    connect(field, &QLineEdit::textEdited, message, [message, text](const QString &typed) { message->*text = typed; });
}

bool ComposeFields::focusMissing() {
    const auto &message = *m_state->viewModel;
    if (message.to->isEmpty())
        m_to->setFocus();
    else if (message.subject->isEmpty())
        m_subject->setFocus();
    else
        return false;
    return true;
}

void ComposeFields::showCc() {
    m_state->viewModel->showCc = true;
    m_ccRow.setVisible(true);
    m_cc->setFocus();
}

void ComposeFields::showBcc() {
    m_state->viewModel->showBcc = true;
    m_bccRow.setVisible(true);
    m_bcc->setFocus();
}

// The toolbar and the attachments stand before the text, and are reached from there.
bool ComposeFields::eventFilter(QObject *watched, QEvent *event) {
    const bool isTab = event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Tab;
    if (watched != m_subject || !isTab)
        return QWidget::eventFilter(watched, event);
    Q_EMIT textRequested();
    return true;
}

void ComposeFields::chooseSender(int index) {
    m_state->viewModel->fromAddress = m_from->itemText(index);
}

void ComposeFields::render() {
    const auto &message = *m_state->viewModel;
    renderSenders();
    m_ccRow.setVisible(message.showCc);
    m_bccRow.setVisible(message.showBcc);
    setText(m_to, message.to);
    setText(m_cc, message.cc);
    setText(m_bcc, message.bcc);
    setText(m_subject, message.subject);
}

void ComposeFields::renderSenders() {
    const auto &message = *m_state->viewModel;
    m_fromRow.setVisible(message.fromAddresses->size() >= 2);
    if (m_senders != message.fromAddresses.get()) {
        m_senders = message.fromAddresses;
        m_from->clear();
        for (const auto &address : m_senders)
            m_from->addItem(address);
    }
    m_from->setCurrentText(message.fromAddress);
}
