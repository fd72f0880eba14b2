#pragma once

#include <QColor>
#include <QWidget>

class QPainter;

/// Draws the picture of the domain with round corners, or, as long as there is none, the initials of `name`. The
/// picture is fetched when it is first asked for: `FaviconStore::iconLoaded` tells when to draw again.
void paintFaviconAvatar(QPainter *painter, const QRectF &rect, const QString &domain, const QString &name,
                        const QColor &color = {});

/// The picture of a correspondent's domain, or the correspondent's initials.
class FaviconAvatarView final : public QWidget {
    Q_OBJECT
public:
    explicit FaviconAvatarView(double size, QWidget *parent = nullptr);

    /// `domain` may be empty.
    void setPerson(const QString &domain, const QString &name);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_domain, m_name;
};
