#include "samplewindow.h"
#include "pagebuilder.h"
#include "titlebar.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int kPadding = 20;
constexpr int kSpacing = 10;

} // namespace

QVBoxLayout *fillSampleWindow(QWidget *window, const QString &title, const QString &text)
{
    setGalleryRole(window, "sample");
    auto *titleLabel = new QLabel(title, window);
    setGalleryRole(titleLabel, "cardTitle");
    auto *close = new TitleButton(TitleButton::Close, QStringLiteral("Close"), window);
    QObject::connect(close, &TitleButton::clicked, window, &QWidget::close);
    auto *textLabel = new QLabel(text, window);
    setGalleryRole(textLabel, "note");
    textLabel->setWordWrap(true);

    auto *titleRow = new QHBoxLayout;
    titleRow->setContentsMargins(kPadding, kSpacing, kSpacing, 0);
    titleRow->addWidget(titleLabel);
    titleRow->addStretch();
    titleRow->addWidget(close);
    auto *body = new QVBoxLayout;
    body->setContentsMargins(kPadding, kSpacing / 2, kPadding, kPadding);
    body->setSpacing(kSpacing);
    body->addWidget(textLabel);
    body->addStretch();
    auto *layout = new QVBoxLayout(window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(titleRow);
    layout->addLayout(body);
    return body;
}

void placeOver(QWidget *shown, const QWidget *host)
{
    const QRect area(host->mapToGlobal(QPoint()), host->size());
    shown->move(area.center() - shown->rect().center());
}
