#pragma once

#include "ui/ToastMessage.h"

#include <QVariantAnimation>
#include <QWidget>

/// The card of a toast, in a window of its own: a web view on the screen below would cover a child. The window passes
/// all input through and never takes the focus.
class ToastView : public QWidget {
    Q_OBJECT
public:
    /// `host` is what the toast lies over.
    explicit ToastView(QWidget *host);

    void setMessage(const ToastMessage &message);
    /// Shows the card, rising from the bottom edge.
    void appear();
    /// Fades the card and hides the window.
    void vanish();
    /// Puts the card at the bottom edge of its host.
    void follow();

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRectF card() const;
    void paintShadow(QPainter &painter) const;

    QWidget *m_host;
    ToastMessage m_message;
    /// From 0, out of sight, to 1.
    QVariantAnimation m_presence;
    bool m_vanishing = false;
    bool m_isComposited = true;
};
