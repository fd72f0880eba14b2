#pragma once

#include "mail/MacAttachmentRow.h"

#include <QWidget>

class QLabel;
class ThemeLabel;

/// What the row of an attachment shows: the icon of its type, its name and its size.
class AttachmentRowView final : public QWidget {
    Q_OBJECT
public:
    explicit AttachmentRowView(QWidget *parent = nullptr);

    void setRow(const MacAttachmentRow &row);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showIcon();
    void showName();

    QString m_name, m_mime;
    QLabel *m_icon;
    ThemeLabel *m_nameLabel;
    ThemeLabel *m_size;
};
