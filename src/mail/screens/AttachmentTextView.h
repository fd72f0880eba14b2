#pragma once

#include <QCoroTask>
#include <QPointer>
#include <QScrollArea>

class PlainTextView;

/// Shows a file of text, selectable.
class AttachmentTextView final : public QScrollArea {
    Q_OBJECT
public:
    explicit AttachmentTextView(QWidget *parent = nullptr);

    /// Reads the file in the background; ends with `loaded` or `failed`, perhaps at once.
    void load(const QString &path);

Q_SIGNALS:
    void loaded();
    void failed();

private:
    static QCoro::Task<> read(QPointer<AttachmentTextView> view, QString path);
    void showText(const QString &text);

    PlainTextView *m_text;
};
