#include "compose/screens/AIWriteSheet.h"

#include "ui/screens/Buttons.h"
#include "ui/screens/ErrorBanner.h"
#include "ui/screens/ThemeLabel.h"

#include <QPlainTextEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize preferredSize(460, 320);

} // namespace

AIWriteSheet::AIWriteSheet(std::shared_ptr<ComposeState> state, QWidget *parent)
    : Sheet(tr("AI Write"), {}, parent)
    , m_state(std::move(state))
    , m_prompt(new QPlainTextEdit(m_state->aiPrompt))
    , m_generating(new ThemeLabel(tr("Generating..."), TextStyle::body, TextRole::secondary))
    , m_error(new ErrorBanner)
    , m_generate(addButton(tr("Generate"), ButtonRole::primary)) {
    setAttribute(Qt::WA_DeleteOnClose);
    resize(preferredSize);
    setSizeGripEnabled(true);
    auto *words = new ThemeLabel(tr("Describe what you want to write"), TextStyle::subheadline, TextRole::secondary);
    words->setBuddy(m_prompt);
    m_prompt->setAccessibleName(words->text());
    m_prompt->setTabChangesFocus(true);
    column()->addWidget(words);
    column()->addWidget(m_prompt, 1);
    column()->addWidget(m_error);
    column()->addWidget(m_generating);
    auto *close = new IconButton(u"xmark.circle.fill"_s, tr("Close (Esc)"));
    addHeaderButton(close);
    connect(close, &IconButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::rejected, m_state.get(), &ComposeState::closeAIPrompt);
    connect(m_prompt, &QPlainTextEdit::textChanged, m_state.get(),
            [this] { m_state->aiPrompt = m_prompt->toPlainText(); });
    connect(m_generate, &QPushButton::clicked, m_state.get(), [this] {
        m_hasGenerated = true;
        // The pressed button, which is disabled now, hands the keyboard to the next one, which closes the sheet.
        m_prompt->setFocus();
        m_state->generate();
    });
    observe(m_state.get(), this, &AIWriteSheet::render);
    setTabOrder(m_prompt, m_generate);
    setTabOrder(m_generate, close);
    m_prompt->setFocus();
}

void AIWriteSheet::render() {
    if (!m_state->showAIPrompt)
        return accept();
    m_generate->setEnabled(m_state->canGenerate());
    m_generating->setVisible(m_state->isAILoading);
    const bool showsError = m_hasGenerated && !m_state->isAILoading;
    m_error->setError(showsError ? m_state->viewModel->errorMessage.get() : std::nullopt);
}
