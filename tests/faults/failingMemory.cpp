#include "recorder.h"
#include "recordingVfs.h"

#include <sqlite3.h>

namespace {

sqlite3_mem_methods real;

void* allocate(int size)
{
    return recorder().fault(Call::Memory) == Fault::None ? real.xMalloc(size) : nullptr;
}

void* reallocate(void* memory, int size)
{
    return recorder().fault(Call::Memory) == Fault::None ? real.xRealloc(memory, size) : nullptr;
}

} // namespace

void installFailingMemory()
{
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &real);
    sqlite3_mem_methods failing = real;
    failing.xMalloc = allocate;
    failing.xRealloc = reallocate;
    if (sqlite3_config(SQLITE_CONFIG_MALLOC, &failing) != SQLITE_OK) qFatal("the engine is in use already");
}
