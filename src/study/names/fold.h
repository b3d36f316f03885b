// Letters as they are compared.
#pragma once

#include <QString>

namespace study::fold {

// Small letters, figures and blanks alone; accents stay, a raised "º" or "ª" is the letter that it stands for.
QString small(const QString& text);

// The letter without its accent.
QChar bare(QChar letter);

// small(), without accents and cedillas.
QString plain(const QString& text);

} // namespace study::fold
