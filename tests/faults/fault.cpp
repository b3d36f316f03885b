#include "fault.h"

bool befalls(Fault fault, Call call)
{
    switch (fault) {
    case Fault::None:
        return false;
    case Fault::Error:
        return call != Call::Memory;
    case Fault::Full:
        return call == Call::Write || call == Call::Replace;
    case Fault::Short:
        return call == Call::Read || call == Call::Write;
    case Fault::Busy:
        return call == Call::Lock;
    case Fault::AfterWork:
        return call == Call::Sync || call == Call::Delete || call == Call::Truncate;
    case Fault::NoMemory:
        return call == Call::Memory;
    }
    return false;
}

QString told(Fault fault)
{
    switch (fault) {
    case Fault::None:
        return "none";
    case Fault::Error:
        return "error";
    case Fault::Full:
        return "full";
    case Fault::Short:
        return "short";
    case Fault::Busy:
        return "busy";
    case Fault::AfterWork:
        return "after";
    case Fault::NoMemory:
        return "memory";
    }
    return {};
}
