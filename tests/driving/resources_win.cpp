#include "resources.h"

#include <psapi.h>
#include <qt_windows.h>

namespace Resources {

void countSystem(Counts *counts)
{
    const HANDLE process = GetCurrentProcess();
    PROCESS_MEMORY_COUNTERS memory{};
    if (GetProcessMemoryInfo(process, &memory, sizeof memory))
        counts->insert(QStringLiteral("memory in KiB"), qint64(memory.PagefileUsage / 1024));
    DWORD handles = 0;
    if (GetProcessHandleCount(process, &handles))
        counts->insert(QStringLiteral("handles"), handles);
    counts->insert(QStringLiteral("GDI objects"), GetGuiResources(process, GR_GDIOBJECTS));
    counts->insert(QStringLiteral("USER objects"), GetGuiResources(process, GR_USEROBJECTS));
}

} // namespace Resources
