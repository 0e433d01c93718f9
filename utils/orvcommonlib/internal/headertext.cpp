#include "headertext.h"

#include <QtCore/QEvent>
#include <QtGui/QTextDocument>
#include <QtWidgets/QLayout>

HeaderText::HeaderText(QWidget *header)
    : QLabel(header)
{
}

HeaderText::~HeaderText() = default;

QString HeaderText::fullText() const
{
    return text() == m_shown ? m_full : text();
}

void HeaderText::setFullText(const QString &text)
{
    m_full = m_shown = text;
    setText(text);
    const QWidget *header = parentWidget();
    if (!hasWidth() || !header || !header->layout() || elided(text) == text)
        return;
    header->layout()->activate(); // the width at hand is that for the old text
    elide();
}

QSize HeaderText::sizeHint() const
{
    return forFullText(QLabel::sizeHint());
}

QSize HeaderText::minimumSizeHint() const
{
    return forFullText(QLabel::minimumSizeHint());
}

QSize HeaderText::forFullText(QSize hint) const
{
    const QFontMetrics metrics = fontMetrics();
    const QString full = fullText();
    if (full != text())
        hint.rwidth() += metrics.horizontalAdvance(full) - metrics.horizontalAdvance(text());
    return hint;
}

void HeaderText::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    elide();
}

void HeaderText::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        elide();
}

// One that its layout has given it.
bool HeaderText::hasWidth() const
{
    return testAttribute(Qt::WA_Resized);
}

void HeaderText::elide()
{
    const QString full = fullText();
    if (!hasWidth() || Qt::mightBeRichText(full) || full.contains(QLatin1Char('\n')))
        return;
    m_full = full;
    m_shown = elided(full);
    setText(m_shown);
}

QString HeaderText::elided(const QString &full) const
{
    return fontMetrics().elidedText(full, Qt::ElideRight, contentsRect().width());
}
