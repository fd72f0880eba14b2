#pragma once

#include "compose/ComposeState.h"

#include <QWidget>

class ContactSuggestions;
class QComboBox;
class QGridLayout;
class QLineEdit;
class ThemeLabel;

/// The rows of a message above its text: sender, recipients and subject.
class ComposeFields final : public QWidget {
    Q_OBJECT
public:
    explicit ComposeFields(std::shared_ptr<ComposeState> state, QWidget *parent = nullptr);

    /// Brings the keyboard to the first field without which the message cannot be sent; false when none is missing.
    bool focusMissing();
    /// Nobody has typed into a field yet.
    bool isUntouched() const { return m_isUntouched; }
    void showCc();
    void showBcc();

Q_SIGNALS:
    /// Return or Tab in the subject: the text comes next.
    void textRequested();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Row {
        ThemeLabel *label;
        QWidget *field;
        void setVisible(bool isVisible) const;
    };

    template <typename Field> Field *addRow(const QString &label, Field *field, Row &row);
    QLineEdit *addTextRow(const QString &label, Row &row);
    void connectField(QLineEdit *field, Published<QString> ComposeViewModel::*text);
    void chooseSender(int index);
    void render();
    void renderSenders();

    std::shared_ptr<ComposeState> m_state;
    QGridLayout *m_rows;
    Row m_fromRow, m_toRow, m_ccRow, m_bccRow, m_subjectRow;
    QComboBox *m_from;
    QLineEdit *m_to, *m_cc, *m_bcc, *m_subject;
    ContactSuggestions *m_suggestions;
    std::vector<QString> m_senders;
    bool m_isUntouched = true;
};
