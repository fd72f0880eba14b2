#pragma once

#include <QLabel>

/// A picture of what was seen before, over what is seen now; it fades out and deletes itself.
class CrossFade final : public QLabel {
    Q_OBJECT
public:
    CrossFade(const QPixmap &former, QWidget *now);
};
