#include "expectations.h"

#include "database.h"
#include "failure.h"
#include "sight.h"
#include "text1252.h"

#include "platform/forms/controls.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace {

QString unified(QString text)
{
    return text.replace("\r\n", "\n");
}

bool isLike(const QString& seen, const QString& pattern)
{
    QStringList parts = unified(pattern).split('%');
    for (QString& part : parts)
        part = QRegularExpression::escape(part);
    const QRegularExpression expression(QRegularExpression::anchoredPattern(parts.join(".*")),
                                        QRegularExpression::DotMatchesEverythingOption);
    return expression.match(unified(seen)).hasMatch();
}

[[noreturn]] void differs(const QString& what, const QString& seen, const QString& expected)
{
    fail(QStringLiteral("%1 is %2, not %3").arg(what, seen, expected));
}

// Takes the oldest box, or the first one behind answered questions, that is what was expected.
template <class Matches>
void takeBox(Stage& stage, const QString& expected, Matches matches)
{
    QList<Box>& boxes = stage.state.boxes;
    if (boxes.isEmpty()) fail("no message box came up; expected was " + expected);
    auto box = boxes.begin();
    while (box != boxes.end() && box->question && !matches(*box))
        ++box;
    if (box == boxes.end() || !matches(*box)) {
        if (box == boxes.end()) box = boxes.begin();
        differs("the message box",
                QStringLiteral("%1 (icon %2, title %3)").arg(quoted(box->text), box->icon, quoted(box->title)),
                expected);
    }
    boxes.erase(boxes.begin(), box + 1);
    stage.save();
}

QString listed(QStringList texts)
{
    for (QString& text : texts)
        text = quoted(text);
    return texts.isEmpty() ? "none" : texts.join(' ');
}

} // namespace

void Expect::equal(const QString& what, const QString& seen, const QString& expected)
{
    if (unified(seen) != unified(expected)) differs(what, quoted(seen), quoted(expected));
}

void Expect::like(const QString& what, const QString& seen, const QString& pattern)
{
    if (!isLike(seen, pattern)) differs(what, quoted(seen), "like " + quoted(pattern));
}

void Expect::number(const QString& what, int seen, int expected)
{
    if (seen != expected) differs(what, QString::number(seen), QString::number(expected));
}

void Expect::message(Stage& stage, const QString& text, const QString& icon, const QString& title)
{
    const QString expected =
        QStringLiteral("%1 (%2title %3)").arg(quoted(text), icon.isEmpty() ? "" : "icon " + icon + ", ", quoted(title));
    takeBox(stage, expected, [&](const Box& box) {
        return unified(box.text) == unified(text) && (icon.isEmpty() || box.icon == icon) && box.title == title;
    });
}

void Expect::error(Stage& stage, const QString& pattern)
{
    const QString expected = pattern.isEmpty() ? "an error" : "an error like " + quoted(pattern);
    takeBox(stage, expected, [&](const Box& box) {
        return box.text.startsWith("Ocorreu o erro ") && (pattern.isEmpty() || isLike(box.text, pattern));
    });
}

void Expect::noMessage(Stage& stage)
{
    for (const Box& box : std::as_const(stage.state.boxes))
        if (!box.question) fail("a message box came up: " + quoted(box.text));
}

void Expect::opened(Stage& stage, const QString& text)
{
    // Either slash: the program's folder and the name behind it needn't agree on one.
    const auto plain = [](QString path) { return path.replace('\\', '/'); };
    QStringList& opened = stage.state.opened;
    if (opened.isEmpty()) fail("nothing was opened; expected was " + quoted(text));
    if (plain(opened.first()) != plain(text)) differs("what was opened", quoted(opened.first()), quoted(text));
    opened.removeFirst();
    stage.save();
}

void Expect::nothingOpened(Stage& stage)
{
    if (!stage.state.opened.isEmpty()) fail("opened was " + quoted(stage.state.opened.first()));
}

void Expect::sql(Stage& stage, const QString& select, const QList<Operand>& rows)
{
    QStringList expected, seen;
    for (const Operand& row : rows)
        expected.append(unified(stage.filled(row.text)));
    for (const QString& row : Database::rows(stage.state.bdp, select))
        seen.append(unified(row));
    if (seen != expected)
        differs(seen.size() == 1 ? "the row" : QStringLiteral("the result (%1 rows)").arg(seen.size()), listed(seen),
                listed(expected));
}

void Expect::states(Stage& stage, const QList<Operand>& operands)
{
    stage.needsProgram();
    const QString& name = operands.first().text;
    const Target target = Lookup::target(name);
    for (const Operand& word : operands.mid(1))
        if (!Sight::holds(target, word.text)) fail(QStringLiteral("%1 isn't %2").arg(name, word.text));
}

void Expect::formStates(Stage& stage, const QList<Operand>& operands)
{
    stage.needsProgram();
    const QString& name = operands.first().text;
    for (const Operand& word : operands.mid(1))
        if (!Sight::formHolds(name, word.text)) fail(QStringLiteral("%1 isn't %2").arg(name, word.text));
}

void Expect::color(Stage& stage, const QString& name, int red, int green, int blue)
{
    stage.needsProgram();
    const Target target = Lookup::target(name);
    if (!target.widget) fail(name + " is a menu item and has no colour");
    const QColor seen = backColor(target.widget);
    if (seen.rgb() != qRgb(red, green, blue))
        differs("the colour of " + name, QStringLiteral("%1 %2 %3").arg(seen.red()).arg(seen.green()).arg(seen.blue()),
                QStringLiteral("%1 %2 %3").arg(red).arg(green).arg(blue));
}

void Expect::row(Stage& stage, const QString& name, int row, const QList<Operand>& cells)
{
    stage.needsProgram();
    const QStringList seen = Sight::cells(Lookup::target(name), row);
    if (cells.size() > seen.size()) fail(QStringLiteral("%1 has only %2 columns").arg(name).arg(seen.size()));
    for (qsizetype column = 0; column < cells.size(); ++column)
        if (cells[column].isText)
            equal(QStringLiteral("column %1 of row %2 of %3").arg(column).arg(row).arg(name), seen[column],
                  stage.filled(cells[column].text));
}

void Expect::nodes(Stage& stage, const QString& name, const QStringList& lines)
{
    stage.needsProgram();
    QStringList expected;
    for (const QString& line : lines)
        expected.append(stage.filled(line));
    const QStringList seen = Sight::nodes(Lookup::target(name));
    for (qsizetype i = 0; i < std::min(seen.size(), expected.size()); ++i)
        equal(QStringLiteral("node %1 of %2").arg(i + 1).arg(name), seen[i], expected[i]);
    number("the number of nodes of " + name, int(seen.size()), int(expected.size()));
}

void Expect::fileHas(const QString& path, const QString& text)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) fail(path + " can't be read");
    if (!unified(from1252(file.readAll())).contains(unified(text))) fail(path + " doesn't hold " + quoted(text));
}

void Expect::nothingLeft(Stage& stage)
{
    const State& state = stage.state;
    noMessage(stage);
    nothingOpened(stage);
    if (!state.answers.isEmpty()) fail("an answer is left over that no question asked for");
    if (!state.picks.isEmpty()) fail("a pick is left over that no file dialog asked for");
    state.accounts.requireOver();
}
