#pragma once

#include <QtCore/Qt>

#include <algorithm>
#include <iterator>

/// What Qt calls a key or a modifier, and what the system calls it.
struct NativeKey
{
    int qt;
    quint32 native;
};

/// The system's code of a Qt key; 0 when the table has none.
template<std::size_t count>
quint32 nativeCode(const NativeKey (&table)[count], int key)
{
    const auto *const entry = std::find_if(std::begin(table), std::end(table),
                                           [key](const NativeKey &each) { return each.qt == key; });
    return entry == std::end(table) ? 0 : entry->native;
}

/// The system's flags of all the modifiers, without those that the table has not.
template<std::size_t count>
quint32 nativeFlags(const NativeKey (&table)[count], Qt::KeyboardModifiers modifiers)
{
    quint32 flags = 0;
    for (const NativeKey &entry : table)
        flags |= modifiers & entry.qt ? entry.native : 0;
    return flags;
}
