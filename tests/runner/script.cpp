#include "script.h"

#include "failure.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

namespace {

struct Setting
{
    QString file;
    Scenario told;

    QString place() const { return QStringLiteral("%1:%2").arg(file).arg(told.line); }
};

class Builder
{
public:
    explicit Builder(const QList<FormOfStep>& forms) : forms_(forms) {}

    Script build(const QString& path)
    {
        const Text text = readText(path, forms_);
        files_.insert(QFileInfo(path).canonicalFilePath());
        note(text.errorLine, text.error);
        addSettings(text, 0);
        addIncludes(text, 0);
        for (const Scenario& setting : text.settings) { // one that no scenario uses is to be sound, too
            const Scenario whole = filled(setting, {setting.title});
            note(whole.errorLine, whole.error);
        }
        for (const Scenario& scenario : text.scenarios)
            script_.scenarios.append(filled(scenario));
        return script_;
    }

private:
    // `line` is the line of the include that led here; 0 in the file that is played.
    void addSettings(const Text& text, int line)
    {
        for (const Scenario& told : text.settings) {
            if (told.title.isEmpty()) continue; // nothing can ask for it
            const Setting setting{text.path, told};
            const auto known = settings_.constFind(told.title);
            if (known == settings_.cend()) {
                settings_.insert(told.title, setting);
                continue;
            }
            const QString where = line > 0 ? setting.place() + " and " + known->place() : known->place();
            note(line > 0 ? line : told.line,
                 QStringLiteral("the setting %1 is told twice (%2)").arg(quoted(told.title), where));
        }
    }

    void addIncludes(const Text& text, int line)
    {
        const QDir folder(QFileInfo(text.path).path());
        for (const Include& include : text.includes) {
            const int at = line > 0 ? line : include.line;
            const Text included = readText(QDir::cleanPath(folder.filePath(include.path)), forms_);
            if (!included.error.isEmpty()) {
                const QString place = included.errorLine > 0 ? QStringLiteral(":%1").arg(included.errorLine) : "";
                note(at, QStringLiteral("%1 (%2%3)").arg(included.error, included.path, place));
            }
            // Files that include each other, or one by two ways, are read once.
            const QString file = QFileInfo(included.path).canonicalFilePath();
            if (file.isEmpty() || files_.contains(file)) continue;
            files_.insert(file);
            addSettings(included, at);
            addIncludes(included, at);
        }
    }

    void note(int line, const QString& reason)
    {
        if (!script_.error.isEmpty()) return;
        script_.error = reason;
        script_.errorLine = line;
    }

    // The same with the steps of its settings in place; `within` names the setting that it is, if any.
    Scenario filled(Scenario scenario, const QStringList& within = {}) const
    {
        const QList<Step> steps = std::exchange(scenario.steps, {});
        for (const Step& step : steps) {
            if (step.form >= 0) {
                scenario.steps.append(step);
                continue;
            }
            try {
                QStringList open = within;
                append(scenario.steps, step, step.line, open, {});
            } catch (const Failure& failure) {
                if (!scenario.error.isEmpty() && scenario.errorLine < step.line) continue;
                scenario.errorLine = step.line;
                scenario.error = failure.reason;
            }
        }
        return scenario;
    }

    // Appends what a "with" asks for. `open` are the settings that it stands in, `by` tells where.
    void append(QList<Step>& steps, const Step& with, int line, QStringList& open, const QString& by) const
    {
        const QString name = with.operands.first().text;
        const QString where = by.isEmpty() ? by : " (" + by + ')';
        const auto setting = settings_.constFind(name);
        if (setting == settings_.cend()) fail("there is no setting " + quoted(name) + where);
        if (open.contains(name)) fail("the setting " + quoted(name) + " needs itself" + where);
        const auto origin = [&](int at) {
            const QString here = QStringLiteral("%1:%2 in %3").arg(setting->file).arg(at).arg(quoted(name));
            return by.isEmpty() ? here : here + ", by " + by;
        };
        const Scenario& told = setting->told;
        if (!told.error.isEmpty()) fail(QStringLiteral("%1 (%2)").arg(told.error, origin(told.errorLine)));

        open.append(name);
        for (Step step : told.steps) {
            step.origin = origin(step.line);
            step.line = line;
            if (step.form < 0)
                append(steps, step, line, open, step.origin);
            else
                steps.append(step);
        }
        open.removeLast();
    }

    const QList<FormOfStep>& forms_;
    Script script_;
    QHash<QString, Setting> settings_; // by name
    QSet<QString> files_;              // read already
};

} // namespace

Script readScript(const QString& path, const QList<FormOfStep>& forms)
{
    return Builder(forms).build(path);
}
