// Parishes of any size: a BDP with all its reference data, and people who are born, marry, have children, assist at
// acts and die over three centuries, as a transcriber would have entered them by the years.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace bench {

inline constexpr std::uint32_t usualSeed = 1;

// The parish under study.
inline constexpr auto parishCode = "030101";
// Its localities have the codes parishCode + "01" and so on; the first ones are on the working list.
inline constexpr int localities = 600;
QByteArray localityCode(int locality); // from 1 on

// Makes a BDP with so many people at `path`, replacing none. The same numbers give the same rows.
// The people are numbered from 1 on by their years of birth, the families by those of their marriages: there is about
// one to five people.
void makeParish(const QString& path, int people, std::uint32_t seed = usualSeed);

} // namespace bench
