#include "study/report/page.h"

#include "study/report/origin.h"
#include "study/report/page_p.h"
#include "study/report/smallNumbers.h"

namespace study::report {

namespace {

QString chapterAnchor(std::size_t chapter)
{
    return QString("c%1").arg(chapter + 1);
}

QString sectionAnchor(std::size_t chapter, std::size_t section)
{
    return QString("c%1-%2").arg(chapter + 1).arg(section + 1);
}

QString link(const QString& anchor, const QString& given)
{
    return tag("a", {{"href", '#' + anchor}}, escaped(given));
}

QString numbered(const QString& label, const QString& title)
{
    return label + ' ' + title;
}

QString contentsOf(const Report& report)
{
    QString chapters;
    for (std::size_t i = 0; i < report.chapters.size(); ++i) {
        const Chapter& chapter = report.chapters[i];
        QString sections;
        for (std::size_t j = 0; j < chapter.sections.size(); ++j)
            sections += tag("li", link(sectionAnchor(i, j),
                                       numbered(QString("%1.%2").arg(i + 1).arg(j + 1), chapter.sections[j].title)));
        if (!sections.isEmpty()) sections = tag("ol", sections);
        chapters +=
            tag("li", link(chapterAnchor(i), numbered(QString::number(i + 1), chapter.title)) + sections) + '\n';
    }
    if (chapters.isEmpty()) return tag("p", {{"class", "vazio"}}, "O relatório não tem capítulos.") + '\n';
    return tag("nav", {{"aria-label", "Índice"}}, tag("h2", {{"id", "indice"}}, "Índice") + tag("ol", chapters)) + '\n';
}

QString entry(const QString& name, const QString& value)
{
    return tag("dt", escaped(name)) + tag("dd", escaped(value)) + '\n';
}

QString sourcesOf(const Report& report)
{
    QString all;
    for (const parish::Source& source : report.sources)
        all += tag("dl", entry("Ficheiro", source.path) + entry("Tamanho", sizeText(source.bytes)) +
                             entry("SHA-256", source.sha256) + entry("Lido em", momentText(source.readAt)));
    return all.isEmpty() ? QString()
                         : tag("section", {{"class", "fontes"}},
                               tag("h2", {{"id", "fontes"}}, report.sources.size() == 1 ? "Fonte" : "Fontes") + all) +
                               '\n';
}

QString settingsOf(const Report& report)
{
    QString all;
    for (const Told& setting : report.settings)
        all += entry(setting.name, setting.value);
    return all.isEmpty() ? QString()
                         : tag("section", {{"class", "opcoes"}},
                               tag("h2", {{"id", "opcoes"}}, "Opções do estudo") + tag("dl", all)) +
                               '\n';
}

QString guideOf(const Report& report)
{
    if (report.chapters.empty()) return {};
    return tag("section", {{"class", "leitura"}},
               tag("h2", {{"id", "leitura"}}, "Como ler os quadros") +
                   tag("p", {{"class", "metodo"}},
                       "Entre parênteses rectos estão os limites do intervalo de confiança de 95 %. " +
                           escaped(ruleOfSmallNumbers()) + " O traço (–) está onde não há valor.")) +
           '\n';
}

// The figures of a chapter are counted through its sections.
struct Counters
{
    int tables = 0, charts = 0;
};

QString sectionMarkup(const Section& section, std::size_t chapter, std::size_t place, Counters& counters)
{
    const QString anchor = sectionAnchor(chapter, place);
    QString inner =
        tag("h3", escaped(numbered(QString("%1.%2").arg(chapter + 1).arg(place + 1), section.title))) + '\n';
    if (!section.method.isEmpty()) inner += tag("p", {{"class", "metodo"}}, escaped(section.method)) + '\n';
    if (section.figures.empty()) inner += tag("p", {{"class", "vazio"}}, "sem dados");
    int figures = 0;
    for (const Figure& figure : section.figures) {
        const QString own = anchor + '-' + QString::number(++figures);
        if (const auto* table = std::get_if<Table>(&figure))
            inner += tableMarkup(*table, QString("Quadro %1.%2").arg(chapter + 1).arg(++counters.tables), own);
        else if (const auto* chart = std::get_if<Chart>(&figure))
            inner += chartMarkup(*chart, QString("Gráfico %1.%2").arg(chapter + 1).arg(++counters.charts), own);
    }
    return tag("section", {{"class", "assunto"}, {"id", anchor}}, inner) + '\n';
}

QString chapterMarkup(const Chapter& chapter, std::size_t place)
{
    QString inner = tag("h2", escaped(numbered(QString::number(place + 1), chapter.title))) + '\n';
    if (chapter.sections.empty()) inner += tag("p", {{"class", "vazio"}}, "sem dados");
    Counters counters;
    for (std::size_t i = 0; i < chapter.sections.size(); ++i)
        inner += sectionMarkup(chapter.sections[i], place, i, counters);
    return tag("section", {{"class", "capitulo"}, {"id", chapterAnchor(place)}}, inner) + '\n';
}

QString headerOf(const Report& report)
{
    QString parish = report.parish;
    if (!report.parishCode.isEmpty()) parish += (parish.isEmpty() ? "" : ", ") + QString("código ") + report.parishCode;
    QString made;
    if (report.made.isValid()) made += "Feito em " + momentText(report.made);
    if (!report.program.isEmpty()) made += (made.isEmpty() ? "Feito" : "") + QString(" com ") + report.program;
    return tag("header", tag("h1", escaped(report.title)) + tag("p", {{"class", "paroquia"}}, escaped(parish)) +
                             (made.isEmpty() ? QString() : tag("p", {{"class", "metodo"}}, escaped(made + '.')))) +
           '\n';
}

} // namespace

QByteArray pageOf(const Report& report)
{
    const QString title = report.parish.isEmpty() ? report.title : report.title + " – " + report.parish;
    const QString head = "<meta charset=\"utf-8\"/>\n"
                         "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n" +
                         tag("title", escaped(title)) + tag("style", pageStyle());
    QString body = headerOf(report) + contentsOf(report) + sourcesOf(report) + settingsOf(report) + guideOf(report);
    for (std::size_t i = 0; i < report.chapters.size(); ++i)
        body += chapterMarkup(report.chapters[i], i);
    const QString page = "<!DOCTYPE html>\n" + tag("html", {{"lang", "pt-PT"}},
                                                   '\n' + tag("head", '\n' + head) + '\n' +
                                                       tag("body", '\n' + tag("main", '\n' + body)) + '\n');
    return (page + '\n').toUtf8();
}

} // namespace study::report
