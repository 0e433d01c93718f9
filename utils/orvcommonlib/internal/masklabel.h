#pragma once

#include <QtWidgets/QLabel>

/// The label that darkens a window. It is a QLabel to every client and style sheet: only its type tells it from
/// any other.
class MaskLabel : public QLabel
{
public:
    explicit MaskLabel(QWidget *window);
    ~MaskLabel() override;

private:
    Q_DISABLE_COPY(MaskLabel)
};
