#pragma once

#include "ui/screens/Sheet.h"

class QLineEdit;

/// Asks for the address of a link or an image.
class EditorAddressSheet final : public Sheet {
    Q_OBJECT

public:
    EditorAddressSheet(const QString &title, const QString &example, QWidget *parent);

Q_SIGNALS:
    /// Never empty, and as it was typed.
    void inserted(const QString &address);

private:
    void insert();

    QLineEdit *m_address;
};
