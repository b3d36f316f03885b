#include "study/transcripts/import.h"

#include <algorithm>

namespace study {

namespace {

constexpr int mostListed = 20;
constexpr int longestBook = 120;

QString counted(int number, const QString& one, const QString& many)
{
    return QString::number(number) + ' ' + (number == 1 ? one : many);
}

// What occurs most often first, and how many kinds more there are.
QString listed(const QMap<QString, int>& counts)
{
    QList<QPair<QString, int>> all;
    all.reserve(counts.size());
    for (auto one = counts.constBegin(); one != counts.constEnd(); ++one)
        all.push_back({one.key(), *one});
    std::stable_sort(all.begin(), all.end(), [](const auto& a, const auto& b) { return a.second > b.second; });
    QStringList texts;
    for (const auto& [text, number] : all.mid(0, mostListed))
        texts << QString("%1 (%2)").arg(text.simplified().left(60)).arg(number);
    if (all.size() > mostListed) texts << QString("e mais %1").arg(all.size() - mostListed);
    return texts.join(", ");
}

void add(QStringList& lines, const QString& title, const QMap<QString, int>& counts)
{
    if (!counts.isEmpty()) lines << title + ": " + listed(counts) + '.';
}

QString byKind(const QMap<ActKind, int>& stored)
{
    QStringList parts;
    if (const int baptisms = stored.value(ActKind::Baptism)) parts << counted(baptisms, "baptismo", "baptismos");
    if (const int marriages = stored.value(ActKind::Marriage)) parts << counted(marriages, "casamento", "casamentos");
    if (const int burials = stored.value(ActKind::Burial)) parts << counted(burials, "óbito", "óbitos");
    return parts.isEmpty() ? QString("nenhum acto") : parts.join(", ");
}

} // namespace

int ImportReport::storedActs() const
{
    int all = 0;
    for (const int number : stored)
        all += number;
    return all;
}

QStringList ImportReport::lines() const
{
    if (cancelled)
        return {isRehearsal ? "O ensaio foi interrompido." : "A importação foi interrompida. Nada foi escrito."};
    const auto there =
        static_cast<int>(std::count_if(left.begin(), left.end(), [](const LeftAct& one) { return one.there; }));
    const int refused = static_cast<int>(left.size()) - there;
    QStringList lines;
    lines << QString("Actos no ficheiro: %1. %2: %3.")
                 .arg(acts)
                 .arg(isRehearsal ? "Para guardar" : "Guardados", byKind(stored));
    if (there > 0) lines << QString("Já estavam na BDP: %1.").arg(counted(there, "acto", "actos"));
    if (!alone.isEmpty())
        lines << QString("Só o acto, sem fichas, que não o podem receber: %1.")
                     .arg(counted(static_cast<int>(alone.size()), "acto", "actos"));
    if (refused > 0) lines << QString("Não se podem guardar: %1.").arg(counted(refused, "acto", "actos"));
    lines << QString("Pessoas novas: %1; já conhecidas: %2; só no acto: %3.")
                 .arg(newPeople)
                 .arg(knownPeople)
                 .arg(keptNames);
    lines << QString("Famílias novas: %1; filhos de casais já conhecidos: %2.").arg(newFamilies).arg(linkedCouples);
    if (sexesByName > 0) lines << QString("Sexo tirado do nome próprio: %1.").arg(sexesByName);
    if (const QString doubt = doubtOfEncoding(encoding); !doubt.isEmpty()) lines << doubt;
    add(lines, "Linhas por tabela", rows);
    add(lines, "Lugares que a BDP não tem", unplaced);
    add(lines, "Profissões que a BDP não tem", unknownProfessions);
    add(lines, "Fica só no acto", leftOut);
    add(lines, "Grupos desconhecidos, guardados como notas", unknownParts);
    if (!books.isEmpty()) lines << "O que se diz dos livros:";
    for (const QString& book : books.mid(0, mostListed))
        lines << "  " + book.simplified().left(longestBook);
    if (books.size() > mostListed) lines << QString("  e mais %1").arg(books.size() - mostListed);
    if (!examples.isEmpty()) lines << "Por exemplo:";
    for (const QString& example : examples)
        lines << "  " + example;
    return lines;
}

} // namespace study
