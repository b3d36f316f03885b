#include "text.h"

#include "failure.h"

#include <QFile>

namespace {

class Reader
{
public:
    Reader(const QString& path, QStringList lines, const QList<FormOfStep>& forms)
        : lines_(std::move(lines)), forms_(forms)
    {
        text_.path = path;
    }

    Text read()
    {
        while (next_ < lines_.size()) {
            const QString line = lines_[next_++].trimmed();
            if (line.isEmpty() || line.startsWith('#')) continue;
            const int number = int(next_);
            try {
                readLine(line, number);
            } catch (const Failure& failure) {
                note(number, failure.reason);
            }
        }
        leave();
        if (text_.scenarios.isEmpty() && text_.settings.isEmpty() && text_.includes.isEmpty() && text_.error.isEmpty())
            text_.error = "no scenario stands in this file";
        return text_;
    }

private:
    void readLine(const QString& line, int number)
    {
        if (opensWith(line, "scenario")) {
            open(text_.scenarios, number);
            current_->title = onlyText(line, "a scenario opens with: scenario \"title\"");
        } else if (opensWith(line, "setting")) {
            open(text_.settings, number);
            inSetting_ = true;
            current_->title = onlyText(line, "a setting opens with: setting \"name\"");
        } else if (opensWith(line, "include")) {
            leave();
            text_.includes.append({onlyText(line, "settings are included with: include \"path\""), number});
        } else if (inSetting_ && line == "end") {
            inSetting_ = false;
            leave();
        } else {
            readStep(line, number);
        }
    }

    void readStep(const QString& line, int number)
    {
        Step step;
        if (opensWith(line, "with")) {
            step.operands.append({onlyText(line, "a setting is asked for with: with \"name\""), true});
        } else {
            step = parseStep(line, forms_);
            if (forms_[step.form].hasBody()) step.body = readBody();
            if (inSetting_ && !forms_[step.form].prepares) fail("a setting holds only steps that prepare");
        }
        step.line = number;
        if (!current_) fail("a step stands outside of a scenario");
        current_->steps.append(step);
    }

    QStringList readBody()
    {
        QStringList body;
        while (next_ < lines_.size()) {
            const QString& line = lines_[next_++];
            if (line.trimmed() == "end") return body;
            body.append(line);
        }
        fail("its \"end\" is missing");
    }

    void open(QList<Scenario>& list, int line)
    {
        leave();
        list.append({{}, line, {}, 0, {}});
        current_ = &list.last();
    }

    // The scenario or setting before is over; a setting that has had its "end" was left then.
    void leave()
    {
        if (inSetting_) note(current_->line, "its \"end\" is missing");
        inSetting_ = false;
        current_ = nullptr;
    }

    void note(int line, const QString& reason)
    {
        QString& error = current_ ? current_->error : text_.error;
        if (!error.isEmpty()) return;
        error = reason;
        (current_ ? current_->errorLine : text_.errorLine) = line;
    }

    QStringList lines_;
    const QList<FormOfStep>& forms_;
    qsizetype next_ = 0;
    Text text_;
    Scenario* current_ = nullptr; // the scenario or setting that the line stands in
    bool inSetting_ = false;
};

} // namespace

Text readText(const QString& path, const QList<FormOfStep>& forms)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Text text;
        text.path = path;
        text.error = "the file can't be read: " + file.errorString();
        return text;
    }
    QString text = QString::fromUtf8(file.readAll());
    if (text.startsWith(QChar::ByteOrderMark)) text.remove(0, 1);
    text.replace("\r\n", "\n");
    return Reader(path, text.split('\n'), forms).read();
}
