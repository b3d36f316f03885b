// What the user has set for the checks of a BDP, kept in it (table estudo_regra).
#pragma once

#include "platform/jet/connection.h"
#include "study/checks/check.h"

#include <QString>

#include <optional>
#include <vector>

namespace study::checks {

// What the user may set: a tolerance, whether a rule is asked, or a limit of one.
struct Setting
{
    enum class Kind
    {
        Number, // 0 or more
        Switch  // 1: asked
    };
    QString key;        // "P-02", "P-02.idade", "tolerancia"
    QString rule = {};  // the id of the rule, "" for a tolerance
    QString title = {}; // of the rule or the limit, with its unit
    Kind kind = Kind::Number;
    double standard = 0;

    bool operator==(const Setting&) const = default;
};

// The tolerances, then each rule with its limits behind it, in the order of rules().
const std::vector<Setting>& allSettings();

double valueOf(const Settings& settings, const Setting& setting);
void setValue(Settings& settings, const Setting& setting, double value);

// The settings of the BDP; what isn't kept, or makes no sense, is as standard. Throws jet::Error.
Settings keptSettings(const jet::Connection& bdp);

// Keeps what is otherwise than standard, all or nothing, and forgets the rest, so that a later standard holds where the
// user has set nothing; what is kept of rules that are unknown here stays. Throws jet::Error.
void keepSettings(jet::Connection& bdp, const Settings& settings);

// "2,5", "100"; as it is typed.
QString inWords(const Setting& setting, double value);
// Of a number as it is typed; nothing where it is none, or less than 0.
std::optional<double> numberFrom(const QString& typed);

} // namespace study::checks
