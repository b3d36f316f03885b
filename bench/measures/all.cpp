#include "measures/all.h"

namespace bench {

const std::vector<Measure>& measures()
{
    static const std::vector<Measure> all = [] {
        std::vector<Measure> together;
        for (const auto& of : {writing, baptisms, loading, moving, modes, searching, finding, checking, results,
                               deleting, places, copies, processes})
            for (Measure& measure : of())
                together.push_back(std::move(measure));
        return together;
    }();
    return all;
}

} // namespace bench
