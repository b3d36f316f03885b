// Cases written for other programs.
#include "study/checks/listing.h"
#include "study/checks/rule.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <algorithm>

namespace study::checks {

namespace {

// Of an act, as those of people and families.
QString shown(qint64 number)
{
    return QString::number(number);
}

qint64 value(qint64 number)
{
    return number;
}

template <class Number>
QStringList texts(const std::vector<Number>& numbers)
{
    QStringList all;
    all.reserve(static_cast<qsizetype>(numbers.size()));
    for (const Number number : numbers)
        all << shown(number);
    return all;
}

template <class Number>
QJsonArray values(const std::vector<Number>& numbers)
{
    QJsonArray all;
    for (const Number number : numbers)
        all.append(value(number));
    return all;
}

QString titleOf(const Case& one)
{
    const Rule* rule = ruleOf(one.rule);
    return rule ? QString(rule->title) : QString();
}

QString remarkOf(const QString& id)
{
    const Rule* rule = ruleOf(id);
    return rule ? QString(rule->remark) : QString();
}

QString cell(QString text)
{
    if (!text.isEmpty() && QStringLiteral("=+-@\t\r").contains(text.front())) text.prepend('\'');
    return '"' + text.replace('"', "\"\"") + '"';
}

QString row(const QStringList& cells)
{
    QStringList quoted;
    quoted.reserve(cells.size());
    for (const QString& text : cells)
        quoted << cell(text);
    return quoted.join(';') + "\r\n";
}

QString headOf(const QString& of, const QString& when, const QString& told)
{
    const QString page = R"(<!DOCTYPE html>
<html lang="pt"><head><meta charset="utf-8"><title>Contradições</title>
<style>
body { font-family: serif; margin: 2em; }
h2 { font-size: 1.1em; margin: 1.2em 0 0.3em; break-after: avoid; }
li { margin: 0.2em 0; break-inside: avoid; }
.nota { font-style: italic; }
</style></head><body>
<h1>Contradições: %1</h1>
<p>%2: %3.</p>
)";
    const QString check = when.isEmpty() ? QString("Casos") : "Verificação de " + when;
    return page.arg(of.toHtmlEscaped(), check.toHtmlEscaped(), told.toHtmlEscaped());
}

} // namespace

QByteArray toCsv(const std::vector<Case>& cases)
{
    QString text = QChar(QChar::ByteOrderMark) + row({"Gravidade", "Regra", "Título", "Caso", "Indivíduos", "Famílias",
                                                      "Actos", "Data", "Observação"});
    for (const Case& one : cases)
        text += row({inWords(one.severity), one.rule, titleOf(one), one.text, texts(one.people).join(' '),
                     texts(one.families).join(' '), texts(one.acts).join(' '), one.when.toString("dd/MM/yyyy"),
                     remarkOf(one.rule)});
    return text.toUtf8();
}

QByteArray toJson(const std::vector<Case>& cases)
{
    QJsonArray all;
    for (const Case& one : cases)
        all.append(QJsonObject{{"regra", one.rule},
                               {"gravidade", inWords(one.severity)},
                               {"titulo", titleOf(one)},
                               {"texto", one.text},
                               {"individuos", values(one.people)},
                               {"familias", values(one.families)},
                               {"actos", values(one.acts)},
                               {"data", one.when.isValid() ? QJsonValue(one.when.toString(Qt::ISODate)) : QJsonValue()},
                               {"chave", one.key()}});
    return QJsonDocument(all).toJson();
}

QByteArray toHtml(const std::vector<Case>& cases, const QString& of, const QString& when)
{
    QString text = headOf(of, when, countText(cases));
    for (const RuleCount& count : countsByRule(cases)) {
        const Rule* rule = ruleOf(count.rule);
        text += QString("<h2>%1 %2 (%3)</h2>\n")
                    .arg(count.rule, QString(rule->title).toHtmlEscaped(), QString::number(count.cases));
        if (*rule->remark) text += "<p class=\"nota\">" + QString(rule->remark).toHtmlEscaped() + "</p>\n";
        text += "<ul>\n";
        for (const Case& one : cases)
            if (one.rule == count.rule)
                text += "<li>" + inWords(one.severity) + ": " + one.text.toHtmlEscaped() + "</li>\n";
        text += "</ul>\n";
    }
    return (text + "</body></html>\n").toUtf8();
}

} // namespace study::checks
