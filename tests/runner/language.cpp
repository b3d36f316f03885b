#include "language.h"

#include "comparison.h"
#include "database.h"
#include "expectations.h"
#include "failure.h"
#include "hands.h"
#include "sight.h"
#include "text1252.h"

#include "platform/forms/forms.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMdiSubWindow>

namespace {

void writeFile(Stage& stage, const QString& path, const QStringList& lines)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) fail(path + " can't be written: " + file.errorString());
    for (const QString& line : lines)
        file.write(to1252(stage.filled(line)) + "\r\n");
    stage.touched(path);
}

void removeFile(Stage& stage, const QString& path)
{
    if (QFileInfo::exists(path) && !QFile::remove(path)) fail(path + " can't be removed");
    stage.touched(path);
}

void makeReadOnly(Stage& stage, const QString& path)
{
    constexpr auto writing = QFile::WriteOwner | QFile::WriteUser | QFile::WriteGroup | QFile::WriteOther;
    if (!QFile::setPermissions(path, QFile::permissions(path) & ~writing)) fail("there is no " + path);
    stage.touched(path);
}

void use(Stage& stage, const QString& path)
{
    stage.state.bdp = path;
    stage.save();
}

void makeBdp(Stage& stage, const QString& path, bool bare)
{
    stage.makeBdp(path, bare);
    use(stage, path);
}

void answer(Stage& stage, Answer answer)
{
    stage.state.answers.append(answer);
    stage.save();
}

void pick(Stage& stage, const QString& path)
{
    stage.state.picks.append(path);
    stage.save();
}

void open(Stage& stage, const QString& name)
{
    stage.needsProgram();
    if (!Forms::exists(name)) fail(name + " is no form of the program");
    Forms::show(name);
    stage.settle();
}

QWidget* loadedForm(Stage& stage, const QString& name)
{
    stage.needsProgram();
    QWidget* form = Lookup::form(name);
    if (!form) fail(name + (Forms::exists(name) ? " isn't loaded" : " is no form of the program"));
    return form;
}

void picture(QWidget* window, const QString& path)
{
    if (!window->grab().save(path)) fail(path + " can't be written");
}

void pictureOfAll(Stage& stage, const QString& path)
{
    stage.needsProgram();
    picture(Forms::mainWindow(), path);
}

// With the frame that it has in the document area.
void pictureOfForm(Stage& stage, const QString& name, const QString& path)
{
    QWidget* form = loadedForm(stage, name);
    if (!form->isVisible()) fail(name + " isn't shown");
    auto* child = qobject_cast<QMdiSubWindow*>(form->parentWidget());
    picture(child ? child : form, path);
}

QString formCaption(Stage& stage, const QString& name)
{
    return loadedForm(stage, name)->windowTitle();
}

Target seen(const Play& p)
{
    p.stage.needsProgram();
    return Lookup::target(p.word(0));
}

void expectExists(const QString& path, bool exists)
{
    if (QFileInfo::exists(path) != exists) fail(path + (exists ? " is missing" : " exists"));
}

void expectSame(const QString& one, const QString& other, const QList<Operand>& except)
{
    static constexpr int most = 40; // lines; more are no help
    QStringList columns;
    for (const Operand& column : except)
        columns.append(column.text);
    const QStringList found = Comparison::differences(one, other, columns);
    if (!found.isEmpty())
        fail(QStringLiteral("%1 differences:\n   ").arg(found.size()) + found.mid(0, most).join("\n   "));
}

void endOfCost(Stage& stage, int seconds)
{
    const Account& account = stage.state.accounts.end();
    if (account.cost.seconds() > seconds)
        fail(QStringLiteral("%1 costs more than %2 s: %3")
                 .arg(quoted(account.title))
                 .arg(seconds)
                 .arg(account.cost.told()));
}

void expectEnded(const Stage& stage)
{
    if (!stage.state.ended) fail("the program has not ended");
}

} // namespace

const QList<StepForm>& language()
{
    static const QList<StepForm> steps{
        {"bdp TEXT", [](Play& p) { makeBdp(p.stage, p.path(0), false); }, true},
        {"bdp TEXT bare", [](Play& p) { makeBdp(p.stage, p.path(0), true); }, true},
        {"exec TEXT", [](Play& p) { Database::exec(p.stage.state.bdp, p.text(0)); }, true},
        {"use TEXT", [](Play& p) { use(p.stage, p.path(0)); }, true},
        {"file TEXT ...", [](Play& p) { writeFile(p.stage, p.path(0), p.step.body); }, true},
        {"remove TEXT", [](Play& p) { removeFile(p.stage, p.path(0)); }, true},
        {"readonly TEXT", [](Play& p) { makeReadOnly(p.stage, p.path(0)); }, true},

        {"start", [](Play& p) { p.stage.start({}); }},
        {"start TEXT", [](Play& p) { p.stage.start(p.path(0)); }},
        {"start raw TEXT", [](Play& p) { p.stage.start(p.text(0)); }},
        {"restart", [](Play& p) { p.stage.start({}); }},
        {"restart TEXT", [](Play& p) { p.stage.start(p.path(0)); }},
        {"restart raw TEXT", [](Play& p) { p.stage.start(p.text(0)); }},
        {"menu MENU", [](Play& p) { Hands::menu(p.stage, p.word(0)); }},
        {"click CONTROL", [](Play& p) { Hands::click(p.stage, p.word(0)); }},
        {"enter CONTROL TEXT", [](Play& p) { Hands::enter(p.stage, p.word(0), p.text(1)); }},
        {"type CONTROL TEXT", [](Play& p) { Hands::type(p.stage, p.word(0), p.text(1)); }},
        {"paste CONTROL TEXT", [](Play& p) { Hands::paste(p.stage, p.word(0), p.text(1)); }},
        {"focus CONTROL", [](Play& p) { Hands::focus(p.stage, p.word(0)); }},
        {"key KEY", [](Play& p) { Hands::key(p.stage, p.word(0)); }},
        {"choose CONTROL TEXT", [](Play& p) { Hands::chooseText(p.stage, p.word(0), p.text(1)); }},
        {"choose CONTROL NUMBER", [](Play& p) { Hands::chooseIndex(p.stage, p.word(0), p.number(1)); }},
        {"check CONTROL", [](Play& p) { Hands::setChecked(p.stage, p.word(0), true); }},
        {"uncheck CONTROL", [](Play& p) { Hands::setChecked(p.stage, p.word(0), false); }},
        {"row CONTROL NUMBER", [](Play& p) { Hands::row(p.stage, p.word(0), p.number(1)); }},
        {"dblclick CONTROL NUMBER", [](Play& p) { Hands::doubleClick(p.stage, p.word(0), p.number(1)); }},
        {"close NAME", [](Play& p) { Hands::close(p.stage, p.word(0)); }},
        {"answer yes", [](Play& p) { answer(p.stage, Answer::Yes); }},
        {"answer no", [](Play& p) { answer(p.stage, Answer::No); }},
        {"answer return", [](Play& p) { answer(p.stage, Answer::Return); }},
        {"pick TEXT", [](Play& p) { pick(p.stage, p.path(0)); }},
        {"pick cancel", [](Play& p) { pick(p.stage, {}); }},
        {"splash keep", [](Play& p) { p.stage.state.splashKept = true; }},
        {"open NAME", [](Play& p) { open(p.stage, p.word(0)); }},
        {"run MENU", [](Play& p) { Hands::runSwitchedOff(p.stage, p.word(0)); }},
        {"shot TEXT", [](Play& p) { pictureOfAll(p.stage, p.stage.shot(p.word(0))); }},
        {"shot NAME TEXT", [](Play& p) { pictureOfForm(p.stage, p.word(0), p.stage.shot(p.word(1))); }},

        {"cost begin TEXT", [](Play& p) { p.stage.state.accounts.begin(p.text(0)); }},
        {"cost end", [](Play& p) { p.stage.state.accounts.end(); }},
        {"cost end within NUMBER", [](Play& p) { endOfCost(p.stage, p.number(0)); }},

        {"expect ended", [](Play& p) { expectEnded(p.stage); }},
        {"expect error", [](Play& p) { Expect::error(p.stage, {}); }},
        {"expect error like TEXT", [](Play& p) { Expect::error(p.stage, p.text(0)); }},
        {"expect no message", [](Play& p) { Expect::noMessage(p.stage); }},
        {"expect message TEXT", [](Play& p) { Expect::message(p.stage, p.text(0)); }},
        {"expect message TEXT icon ICON", [](Play& p) { Expect::message(p.stage, p.text(0), p.word(1)); }},
        {"expect message TEXT title TEXT", [](Play& p) { Expect::message(p.stage, p.text(0), {}, p.text(1)); }},
        {"expect message TEXT icon ICON title TEXT",
         [](Play& p) { Expect::message(p.stage, p.text(0), p.word(1), p.text(2)); }},
        {"expect message TEXT title TEXT icon ICON",
         [](Play& p) { Expect::message(p.stage, p.text(0), p.word(2), p.text(1)); }},
        {"expect opened TEXT", [](Play& p) { Expect::opened(p.stage, p.text(0)); }},
        {"expect nothing opened", [](Play& p) { Expect::nothingOpened(p.stage); }},
        {"expect sql TEXT none", [](Play& p) { Expect::sql(p.stage, p.text(0), {}); }},
        {"expect sql TEXT TEXT+", [](Play& p) { Expect::sql(p.stage, p.text(0), p.from(1)); }},
        {"expect same TEXT TEXT", [](Play& p) { expectSame(p.path(0), p.path(1), {}); }},
        {"expect same TEXT TEXT except CONTROL+", [](Play& p) { expectSame(p.path(0), p.path(1), p.from(2)); }},
        {"expect file TEXT exists", [](Play& p) { expectExists(p.path(0), true); }},
        {"expect file TEXT missing", [](Play& p) { expectExists(p.path(0), false); }},
        {"expect file TEXT has TEXT", [](Play& p) { Expect::fileHas(p.path(0), p.text(1)); }},

        {"expect NAME is FORMSTATE+", [](Play& p) { Expect::formStates(p.stage, p.from(0)); }},
        {"expect NAME caption TEXT",
         [](Play& p) { Expect::equal("the caption of " + p.word(0), formCaption(p.stage, p.word(0)), p.text(1)); }},
        {"expect CONTROL TEXT", [](Play& p) { Expect::equal(p.word(0), Sight::text(seen(p)), p.text(1)); }},
        {"expect CONTROL like TEXT", [](Play& p) { Expect::like(p.word(0), Sight::text(seen(p)), p.text(1)); }},
        {"expect CONTROL is STATE+", [](Play& p) { Expect::states(p.stage, p.from(0)); }},
        {"expect CONTROL color NUMBER NUMBER NUMBER",
         [](Play& p) { Expect::color(p.stage, p.word(0), p.number(1), p.number(2), p.number(3)); }},
        {"expect CONTROL entries NUMBER",
         [](Play& p) {
             Expect::number("the number of entries of " + p.word(0), Sight::entries(seen(p)), p.number(1));
         }},
        {"expect CONTROL entry NUMBER TEXT",
         [](Play& p) {
             Expect::equal("entry " + p.word(1) + " of " + p.word(0), Sight::entry(seen(p), p.number(1)), p.text(2));
         }},
        {"expect CONTROL item NUMBER NUMBER",
         [](Play& p) {
             Expect::number("the item number of entry " + p.word(1) + " of " + p.word(0),
                            Sight::itemData(seen(p), p.number(1)), p.number(2));
         }},
        {"expect CONTROL index NUMBER",
         [](Play& p) { Expect::number("the index of " + p.word(0), Sight::chosen(seen(p)), p.number(1)); }},
        {"expect CONTROL rows NUMBER",
         [](Play& p) { Expect::number("the number of rows of " + p.word(0), Sight::rows(seen(p)), p.number(1)); }},
        {"expect CONTROL row NUMBER CELL+", [](Play& p) { Expect::row(p.stage, p.word(0), p.number(1), p.from(2)); }},
        {"expect CONTROL current NUMBER",
         [](Play& p) { Expect::number("the current row of " + p.word(0), Sight::currentRow(seen(p)), p.number(1)); }},
        {"expect CONTROL nodes ...", [](Play& p) { Expect::nodes(p.stage, p.word(0), p.step.body); }},
    };
    return steps;
}

QList<FormOfStep> forms()
{
    QList<FormOfStep> forms;
    for (const StepForm& step : language())
        forms.append({step.form, step.prepares});
    return forms;
}

Within within(const Step& step)
{
    const QByteArray form = language()[step.form].form;
    if (form.startsWith("expect")) return Within::Seen;
    return form.startsWith("key") || form.startsWith("shot") || form.startsWith("answer") || form.startsWith("pick")
               ? Within::Always
               : Within::Never;
}

bool isRestart(const Step& step)
{
    return QByteArray(language()[step.form].form).startsWith("restart");
}
