#pragma once

#include <QtCore/QEvent>

#include <utility>

/// A `Widget`, to every client and style sheet a plain one, that leaves its style sheets alone as long as
/// nobody sees it.
///
/// Qt polishes each new widget with the next turn of the event loop, shown or not, and hidden ones with what
/// they stand in; and a label has its sheets resolved whenever one changes, although it is still to be
/// polished. Resolving sheets is what costs in a list of rows that may never be opened.
template<typename Widget>
class LazilyStyled : public Widget
{
public:
    using Widget::Widget;

protected:
    bool event(QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::PolishRequest:
            if (!this->isVisible())
                return true;
            break;
        case QEvent::Polish:
            m_polishWhenShown = this->isHidden();
            return m_polishWhenShown || polish();
        case QEvent::Show:
            if (std::exchange(m_polishWhenShown, false))
                polish();
            break;
        case QEvent::ParentChange:
        case QEvent::StyleChange:
            if (!this->testAttribute(Qt::WA_WState_Polished))
                return true;
            break;
        default:
            break;
        }
        return Widget::event(event);
    }

private:
    bool polish()
    {
        QEvent polish(QEvent::Polish);
        Widget::event(&polish);
        QEvent styleChange(QEvent::StyleChange); // those that were left out
        return Widget::event(&styleChange);
    }

    bool m_polishWhenShown = false;
};
