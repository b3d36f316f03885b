// orv-estudo exportar …: a BDP for other programs.
#pragma once

#include "study/exchange/gedcom.h"

#include <functional>
#include <string>

class QTextStream;
namespace CLI {
class App;
}

namespace study {

// What the user has asked for, of one format.
struct ExchangeOrder
{
    QString bdp = {}, target = {};
    exchange::GedcomVersion version = exchange::GedcomVersion::V551;
    int limitYears = 110;

    bool operator==(const ExchangeOrder&) const = default;
};

// The formats below "exportar". Precondition: lives until the arguments are read.
class ExchangeArguments
{
public:
    explicit ExchangeArguments(CLI::App& exported);

    bool isAsked() const;
    QString take(ExchangeOrder& order) const; // "", or what can't be understood

private:
    CLI::App* gedcom_;
    std::string bdp_ = {}, target_ = {}, version_ = {}, limit_ = {};
};

// Ends as an export of acts does (command.h). Throws nothing.
int runExchange(const ExchangeOrder& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);

// For the help of the command.
extern const char* const exchangeUsage;
extern const char* const exchangeHelp;

} // namespace study
