#pragma once

#include "compose/ComposeState.h"

#include <QScrollArea>

/// What goes along with the message: first what is carried from another message, then files. Takes no room while there
/// is nothing; many rows scroll.
class ComposeAttachmentList final : public QScrollArea {
    Q_OBJECT
public:
    explicit ComposeAttachmentList(std::shared_ptr<ComposeState> state, QWidget *parent = nullptr);

private:
    void render();
    void makeRows();
    void addRow(const QString &symbol, const QString &name, qint64 size, std::function<void()> remove);
    void restoreFocus(int row);
    int focusedRow() const;

    std::shared_ptr<ComposeState> m_state;
    std::vector<ForwardedAttachment> m_forwarded;
    std::vector<QUuid> m_files;
    bool m_isFilled = false;
};
