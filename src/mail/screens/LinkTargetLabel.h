#pragma once

#include <QUrl>
#include <QWidget>

/// Says at the bottom left of a message where the link under the mouse leads, over whatever is there.
class LinkTargetLabel final : public QWidget {
    Q_OBJECT
public:
    /// Lies over `host`, which must be shown already or be shown later.
    explicit LinkTargetLabel(QWidget *host);

    /// An empty address takes the label away.
    void setTarget(const QUrl &target);
    const QString &text() const { return m_text; }

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void place();

    QString m_text;
};
