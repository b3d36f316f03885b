// What a scenario expects to see. Every routine throws Failure where it isn't so.
#pragma once

#include "script.h"
#include "stage.h"

namespace Expect {

// Texts are compared with a CR LF counting as one line break.
void equal(const QString& what, const QString& seen, const QString& expected);
void like(const QString& what, const QString& seen, const QString& pattern); // "%" for any run of characters
void number(const QString& what, int seen, int expected);

// The oldest message box not yet expected. An empty icon isn't looked at. Questions that got their answer may be passed
// over: the answer foresaw them.
void message(Stage& stage, const QString& text, const QString& icon = {}, const QString& title = "NUBE - ORV");
void error(Stage& stage, const QString& pattern);
void noMessage(Stage& stage);

void opened(Stage& stage, const QString& text);
void nothingOpened(Stage& stage);
void sql(Stage& stage, const QString& select, const QList<Operand>& rows);
void states(Stage& stage, const QList<Operand>& operands);     // of a control: its name, then the words
void formStates(Stage& stage, const QList<Operand>& operands); // of a form
void color(Stage& stage, const QString& name, int red, int green, int blue);
void row(Stage& stage, const QString& name, int row, const QList<Operand>& cells);
void nodes(Stage& stage, const QString& name, const QStringList& lines);
void fileHas(const QString& path, const QString& text);

// At the end of a scenario: nothing is left over that it did not expect or use.
void nothingLeft(Stage& stage);

} // namespace Expect
