// A tally as a test wants it, by the names of the counts.
#pragma once

#include "study/counting.h"

namespace taking {

inline study::indicators::Key keyOf(const study::indicators::Subject& subject, const char* name,
                                    std::array<qint32, 4> at = {})
{
    for (std::size_t i = 0; i < subject.counts.size(); ++i)
        if (QString(subject.counts[i]) == QString(name)) return {static_cast<quint16>(i), at};
    ADD_FAILURE() << "no count " << name;
    return {};
}

// What a subject makes of a tally.
class Shown
{
public:
    Shown(const study::indicators::Subject& subject, const study::indicators::Tally& tally,
          const study::indicators::Settings& settings = {})
        : figures_(subject.figures(tally, settings))
    {
    }

    study::report::Table table(const char* id) const { return Counting::tableOf(figures_, id); }
    double value(const char* id, const char* row, const char* column) const
    {
        return Counting::value(table(id), row, column);
    }
    QString text(const char* id, const char* row, const char* column) const
    {
        const auto found = table(id);
        const auto* text = std::get_if<QString>(&Counting::cell(found, row, column).value);
        return text ? *text : QString();
    }
    study::report::Standing standing(const char* id, const char* row, const char* column) const
    {
        const auto found = table(id);
        return Counting::cell(found, row, column).standing;
    }

private:
    std::vector<study::report::Figure> figures_;
};

} // namespace taking
