#include "app/screens/ServerForm.h"

#include "ui/screens/Buttons.h"
#include "ui/screens/Card.h"
#include "ui/screens/ErrorBanner.h"
#include "ui/screens/FormField.h"
#include "ui/screens/ThemeLabel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QShortcut>
#include <QVBoxLayout>

ServerForm::ServerForm(std::shared_ptr<ServerAddressForm> form, QWidget *parent)
    : QWidget(parent)
    , m_form(std::move(form)) {
    m_line = makeLine();
    m_editor = makeEditor();
    m_editor->hide();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_line);
    layout->addWidget(m_editor);
    observe(m_form.get(), this, &ServerForm::render);
}

QWidget *ServerForm::makeLine() {
    auto *line = new QWidget;
    m_current = new ThemeLabel({}, TextStyle::footnote, TextRole::secondary);
    m_change = new LinkButton(tr("Change Server…"));
    connect(m_change, &LinkButton::clicked, this, &ServerForm::open);
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    layout->addWidget(m_current);
    layout->addWidget(m_change);
    layout->addStretch();
    return line;
}

QWidget *ServerForm::makeEditor() {
    auto *card = new Card;
    m_address = new FormField(tr("Server Address"), tr("https://mail.example.org"));
    m_trust = new QCheckBox(tr("Trust the server's own certificate"));
    m_trust->setAccessibleName(m_trust->text());
    m_warning =
        new ThemeLabel(tr("Only for a server of your own: with this, any certificate is accepted, so nobody checks "
                          "whether you really talk to your server. Someone in the network could read "
                          "your password and your mail."),
                       TextStyle::footnote, TextRole::error);
    m_warning->setWordWrap(true);
    m_error = new ErrorBanner;
    auto *cancel = new QPushButton(tr("Cancel"));
    cancel->setAccessibleName(cancel->text());
    pressWithReturn(cancel);
    auto *use = new PrimaryButton(tr("Use This Server"));

    connect(m_address, &FormField::textEdited, m_form.get(), [this](const QString &text) { m_form->address = text; });
    connect(m_address, &FormField::returnPressed, this, &ServerForm::apply);
    connect(m_trust, &QCheckBox::toggled, m_form.get(), [this](bool on) { m_form->trustsSelfSigned = on; });
    connect(cancel, &QPushButton::clicked, this, &ServerForm::close);
    connect(use, &QPushButton::clicked, this, &ServerForm::apply);
    auto *escape = new QShortcut(Qt::Key_Escape, card, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, &ServerForm::close);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(use);
    auto *layout = card->column();
    layout->setContentsMargins(20, 16, 20, 16);
    layout->setSpacing(12);
    layout->addWidget(m_address);
    layout->addWidget(m_trust);
    layout->addWidget(m_warning);
    layout->addWidget(m_error);
    layout->addLayout(buttons);
    return card;
}

void ServerForm::open() {
    m_form->reset();
    m_line->hide();
    m_editor->show();
    m_address->lineEdit()->setFocus();
    m_address->lineEdit()->selectAll();
}

void ServerForm::close() {
    m_editor->hide();
    m_line->show();
    m_change->setFocus();
    m_form->reset();
}

void ServerForm::apply() {
    if (!m_form->apply())
        return;
    close();
    Q_EMIT serverChanged();
}

void ServerForm::render() {
    m_current->setText(tr("Server: %1").arg(m_form->currentAddress()));
    m_address->setText(m_form->address);
    m_trust->setChecked(m_form->trustsSelfSigned);
    m_warning->setVisible(m_form->trustsSelfSigned);
    m_error->setError(m_form->errorMessage);
}
