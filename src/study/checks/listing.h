// Cases as lists: which of them are wanted, how many there are, and how they are written for other programs.
#pragma once

#include "study/checks/case.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

namespace study::checks {

struct CaseFilter
{
    std::optional<Severity> severity = {};
    QString text = {}; // words that stand in the case, its rule or its numbers, blind to case and accents

    bool operator==(const CaseFilter&) const = default;
};

// Whether a case is wanted.
class CaseChoice
{
public:
    explicit CaseChoice(const CaseFilter& filter);
    bool operator()(const Case& one) const;

private:
    std::optional<Severity> severity_;
    QStringList words_;
};

// Those that are at least as grave.
std::vector<Case> gravest(const std::vector<Case>& cases, Severity least);

struct RuleCount
{
    QString rule;
    Severity severity = Severity::Unlikely; // the gravest of its cases
    int cases = 0;

    bool operator==(const RuleCount&) const = default;
};
// Of each rule that has found something, in the order of the rules.
std::vector<RuleCount> countsByRule(const std::vector<Case>& cases);

// How many cases are about a date of each decade, by its first year: none that has no case. Behind them, where there
// are any, those without a date, under 0.
std::vector<std::pair<int, int>> countsByDecade(const std::vector<Case>& cases);

// "impossível", "aviso" and "informação", with their numbers: "3 impossíveis, 1 aviso"; "nada" for none.
QString countText(const std::vector<Case>& cases);

// Texts in UTF-8 for programs of tables: a byte order mark, a heading, ";" between the cells and CR LF behind each row.
// A cell that such a program would take for a formula gets an apostrophe before it.
QByteArray toCsv(const std::vector<Case>& cases);
// An array with an object for each case: regra, gravidade, titulo, texto, individuos, familias, actos, data (null for
// none), chave.
QByteArray toJson(const std::vector<Case>& cases);
// A page to be printed, by rules; `of` names the BDP, `when` the moment of the check, if there was one.
QByteArray toHtml(const std::vector<Case>& cases, const QString& of, const QString& when);

} // namespace study::checks
