#pragma once

#include "compose/ComposeState.h"
#include "ui/screens/Sheet.h"

class ErrorBanner;
class QPlainTextEdit;
class ThemeLabel;

/// Asks what the server's model is to write.
class AIWriteSheet final : public Sheet {
    Q_OBJECT
public:
    AIWriteSheet(std::shared_ptr<ComposeState> state, QWidget *parent);

private:
    void render();

    std::shared_ptr<ComposeState> m_state;
    QPlainTextEdit *m_prompt;
    ThemeLabel *m_generating;
    ErrorBanner *m_error;
    QPushButton *m_generate;
    /// An error from before has nothing to do with this sheet.
    bool m_hasGenerated = false;
};
