#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

class QPainter;

/// Draws the picture clipped to a circle, or, when it is null, the initials of `name` on a disc of `color`; an invalid
/// colour stands for the one that the name always gets.
void paintAvatar(QPainter *painter, const QRectF &rect, const QString &name, const QColor &color = {},
                 const QImage &image = {});

/// A person's picture or initials.
class AvatarView : public QWidget {
    Q_OBJECT
public:
    explicit AvatarView(double size, QWidget *parent = nullptr);

    /// `avatarColor` ("#rrggbb") and `avatarImage` (a data URL or Base64) may be empty.
    void setPerson(const QString &name, const QString &avatarColor = {}, const QString &avatarImage = {});

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_name;
    QColor m_color;
    QImage m_image;
};
