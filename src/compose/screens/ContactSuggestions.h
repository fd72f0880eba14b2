#pragma once

#include "compose/ComposeState.h"

#include <QListWidget>

class QLineEdit;

/// The contacts that match what is being typed, in a list below the field. The keyboard stays in the field: the arrow
/// keys walk through the list, Return or Tab takes a contact, Escape closes it.
class ContactSuggestions final : public QListWidget {
    Q_OBJECT
public:
    ContactSuggestions(std::shared_ptr<ComposeState> state, QLineEdit *field);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool takeKey(int key);
    void move(int step);
    void choose(int row);
    void render();
    void place();

    std::shared_ptr<ComposeState> m_state;
    QLineEdit *m_field;
    std::vector<Contact> m_shown;
};
