// The settings of a study as JSON, and kept in the BDP (table estudo_ajuste).
#pragma once

#include "platform/jet/connection.h"
#include "study/indicators/settings.h"

#include <QByteArray>

namespace study::indicators {

// All of them, those as standard too: one object, in UTF-8.
QByteArray jsonOf(const Settings& settings);
// What isn't there is as standard, and what is unknown here is passed over. Throws jet::Error, in Portuguese, where the
// text isn't of settings or a value can't be meant: no setting is guessed.
Settings settingsFrom(const QByteArray& json);

// The settings of the BDP; what isn't kept, or can't be meant, is as standard. Throws jet::Error.
Settings keptSettings(const jet::Connection& bdp);
// Keeps what is otherwise than standard, all or nothing, and forgets the rest, so that a later standard holds where the
// user has set nothing; what is kept of settings that are unknown here stays, and so does a value that can't be meant
// while its setting is as standard. Throws jet::Error.
void keepSettings(jet::Connection& bdp, const Settings& settings);

} // namespace study::indicators
