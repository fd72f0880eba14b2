#include "mail/screens/EmailListSheets.h"

#include "mail/screens/DateRangeSheet.h"
#include "mail/screens/SourceSheet.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/ConfirmationSheet.h"
#include "ui/screens/ToastPresenter.h"

#include <QClipboard>
#include <QGuiApplication>

EmailListSheets::EmailListSheets(std::shared_ptr<EmailListState> state, QWidget *screen)
    : QObject(screen)
    , m_state(std::move(state))
    , m_screen(screen)
    , m_spamToasts(new ToastPresenter(screen))
    , m_copiedToasts(new ToastPresenter(screen)) {
    auto *actions = m_state->actions.get();
    connect(m_spamToasts, &ToastPresenter::expired, actions, [actions] { actions->spamToast = std::nullopt; });
    connect(m_copiedToasts, &ToastPresenter::expired, actions, [actions] { actions->copiedToast = std::nullopt; });
    observe(actions, this, &EmailListSheets::render);
    observe(m_state->filters.get(), this, &EmailListSheets::render);
}

void EmailListSheets::render() {
    renderToasts();
    if (m_sheet && m_sheet->isVisible())
        return;
    const auto &actions = m_state->actions;
    const auto count = qint64(m_state->viewModel->selectedEmails->size());
    if (actions->showDeleteConfirm)
        ask(actions->showDeleteConfirm, deleteDialog(actions, count));
    else if (actions->showSpamConfirm)
        ask(actions->showSpamConfirm, spamDialog(actions, count));
    else if (actions->showBlockConfirm)
        ask(actions->showBlockConfirm, blockDialog(actions, count));
    else if (const auto &item = actions->rowSource.get())
        showSource(item->source);
    else if (m_state->filters->showCustomDateRange)
        (m_sheet = new DateRangeSheet(m_state->filters, m_screen))->open();
}

void EmailListSheets::renderToasts() {
    m_spamToasts->setToast(m_state->actions->spamToast);
    m_copiedToasts->setToast(m_state->actions->copiedToast);
}

void EmailListSheets::ask(Published<bool> &isWanted, const EmailListDialog &dialog) {
    auto *sheet = new ConfirmationSheet(dialog.title, dialog.message, m_screen);
    auto *actions = m_state->actions.get();
    for (const auto &choice : dialog.choices)
        sheet->addChoice(literalButtonText(choice.text),
                         choice.isDestructive ? ButtonRole::destructive : ButtonRole::primary, actions, choice.perform);
    connect(sheet, &QDialog::finished, actions, [&isWanted] { isWanted = false; });
    m_sheet = sheet;
    sheet->open();
}

void EmailListSheets::showSource(const QString &source) {
    auto *sheet = new SourceSheet(m_screen);
    auto *actions = m_state->actions.get();
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->showPlain(source);
    connect(sheet, &SourceSheet::copyRequested, this, &EmailListSheets::copySource);
    connect(sheet, &QDialog::finished, actions, [actions] { actions->rowSource = std::nullopt; });
    m_sheet = sheet;
    sheet->open();
}

void EmailListSheets::copySource(const QString &source) {
    QGuiApplication::clipboard()->setText(source);
    m_state->actions->noteSourceCopied();
}
