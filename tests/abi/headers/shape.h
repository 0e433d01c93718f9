#pragma once

#define EXPORT __attribute__((visibility("default")))

class Hidden;

class EXPORT Base
{
public:
    virtual ~Base();
    virtual int kind() const;
};

/// What the changes of a library can be, one for each definition.
class EXPORT Shape : public Base
{
public:
    enum Side {
        Left,
        Right,
#ifdef ENUMERATOR_ADDED
        Top,
#endif
    };

    Shape();
    ~Shape() override;
    Shape(const Shape &) = delete;
    Shape &operator=(const Shape &) = delete;

#ifdef BASE_OVERRIDDEN
    int kind() const override;
#endif
#ifdef VIRTUAL_ADDED
    virtual int corners() const;
#endif
#ifdef FUNCTION_ADDED
    int area() const;
#endif
#ifndef FUNCTION_REMOVED
    int width() const;
#endif
#ifdef PARAMETER_CHANGED
    int height(long unit) const;
#else
    int height(int unit) const;
#endif
    Side side() const;

private:
#ifdef MEMBER_ADDED
    int m_depth = 0;
#endif
    int m_width = 0;
    Hidden *d;
};
