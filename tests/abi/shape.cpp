#include "shape.h"

class Hidden
{
public:
    int height = 0;
#ifdef HIDDEN_MEMBER_ADDED
    int depth = 0;
#endif
};

Base::~Base() = default;

int Base::kind() const
{
    return 0;
}

Shape::Shape()
    : d(new Hidden)
{
}

Shape::~Shape()
{
    delete d;
}

#ifdef BASE_OVERRIDDEN
int Shape::kind() const
{
    return 1;
}
#endif

#ifdef VIRTUAL_ADDED
int Shape::corners() const
{
    return 4;
}
#endif

#ifdef FUNCTION_ADDED
int Shape::area() const
{
    return m_width * d->height;
}
#endif

#ifndef FUNCTION_REMOVED
int Shape::width() const
{
    return m_width;
}
#endif

#ifdef PARAMETER_CHANGED
int Shape::height(long unit) const
{
    return d->height * static_cast<int>(unit);
}
#else
int Shape::height(int unit) const
{
    return d->height * unit;
}
#endif

Shape::Side Shape::side() const
{
    return Left;
}
