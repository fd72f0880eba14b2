#pragma once

#include <QScrollArea>

class PlainTextView;

/// Shows a file of text, selectable.
class AttachmentTextView final : public QScrollArea {
    Q_OBJECT
public:
    explicit AttachmentTextView(const QString &path, QWidget *parent = nullptr);

Q_SIGNALS:
    void loaded();
    void failed();

private:
    void show(const QString &text);

    PlainTextView *m_text;
};
