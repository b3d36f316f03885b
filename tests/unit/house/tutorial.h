// A reader of the tutorial and of the scenario that plays it, which tells where the two differ.
#pragma once

#include <QString>
#include <QStringList>

namespace house {

// The differences between the pages of the tutorial, in Markdown, and the scenario, one a line; none where
// - both have the same steps, numbered from 1: "## Passo 3. Escolher a paróquia {#passo-3 .passo}" there, and here
//   "# Passo 3. Escolher a paróquia";
// - what a step of the text puts in double quotes stands in the step of the scenario, but for the mark of a letter;
// - what it writes as code, to type, or as a key (<kbd>), is typed or pressed there, and nothing else is;
// - what is clicked or chosen from a menu there, and was seen to bear a caption, is quoted;
// - both have the same pictures.
// The boxes (admonitions) of a step tell reasons and what else may be seen, and aren't compared; nor is HTML, which
// begins its lines with "<".
QStringList differences(const QString& pages, const QString& scenario);

} // namespace house
