#include "study/checks/settings.h"

#include "platform/jet/rows.h"
#include "platform/jet/transaction.h"
#include "study/checks/ownTables.h"

#include <QLocale>

#include <cmath>

namespace study::checks {

namespace {

constexpr auto toleranceKey = "tolerancia";
constexpr auto yearToleranceKey = "tolerancia_ano";
constexpr double largest = 1'000'000; // beyond it nobody means it

bool makesSense(const Setting& setting, double value)
{
    if (setting.kind == Setting::Kind::Switch) return value == 0 || value == 1;
    return std::isfinite(value) && value >= 0 && value <= largest;
}

} // namespace

const OwnTable& settingTable()
{
    static const OwnTable table{
        "estudo_regra",
        {"chave", "valor"},
        "create table estudo_regra (chave varchar primary key not null, valor double not null)"};
    return table;
}

const std::vector<Setting>& allSettings()
{
    static const std::vector<Setting> all = [] {
        const Settings standard;
        std::vector<Setting> made{
            {.key = toleranceKey, .title = "Erro de uma data aproximada (anos)", .standard = standard.tolerance},
            {.key = yearToleranceKey,
             .title = "Erro de datas de que só se sabe o ano (anos)",
             .standard = standard.yearTolerance}};
        for (const Rule& rule : rules()) {
            made.push_back({.key = rule.id,
                            .rule = rule.id,
                            .title = rule.title,
                            .kind = Setting::Kind::Switch,
                            .standard = rule.standard ? 1.0 : 0.0});
            for (const Limit& limit : rule.limits)
                made.push_back({.key = QString(rule.id) + '.' + limit.name,
                                .rule = rule.id,
                                .title = limit.title,
                                .standard = limit.standard});
        }
        return made;
    }();
    return all;
}

double valueOf(const Settings& settings, const Setting& setting)
{
    if (setting.key == toleranceKey) return settings.tolerance;
    if (setting.key == yearToleranceKey) return settings.yearTolerance;
    if (setting.kind == Setting::Kind::Switch) return settings.asked.value(setting.key, setting.standard != 0) ? 1 : 0;
    return settings.limits.value(setting.key, setting.standard);
}

void setValue(Settings& settings, const Setting& setting, double value)
{
    const bool isStandard = value == setting.standard;
    if (setting.key == toleranceKey)
        settings.tolerance = value;
    else if (setting.key == yearToleranceKey)
        settings.yearTolerance = value;
    else if (setting.kind == Setting::Kind::Switch)
        isStandard ? void(settings.asked.remove(setting.key)) : void(settings.asked.insert(setting.key, value != 0));
    else
        isStandard ? void(settings.limits.remove(setting.key)) : void(settings.limits.insert(setting.key, value));
}

Settings keptSettings(const jet::Connection& bdp)
{
    Settings settings;
    if (!exists(bdp, settingTable())) return settings;
    QHash<QString, double> kept;
    jet::Rows rows(bdp, jet::NativeSql("select chave, valor from estudo_regra where typeof(valor) in ('real', "
                                       "'integer')"));
    while (rows.next())
        kept.insert(rows.text(0), rows.real(1));
    for (const Setting& setting : allSettings())
        if (const auto value = kept.constFind(setting.key); value != kept.cend() && makesSense(setting, *value))
            setValue(settings, setting, *value);
    return settings;
}

void keepSettings(jet::Connection& bdp, const Settings& settings)
{
    if (settings == Settings{} && !exists(bdp, settingTable())) return;
    jet::Transaction transaction(bdp);
    make(bdp, settingTable());
    for (const Setting& setting : allSettings()) {
        bdp.execute(jet::NativeSql("delete from estudo_regra where chave = ?", {setting.key}));
        const double value = valueOf(settings, setting);
        if (value != setting.standard)
            bdp.execute(jet::NativeSql("insert into estudo_regra (chave, valor) values (?, ?)", {setting.key, value}));
    }
    transaction.commit();
}

QString inWords(const Setting& setting, double value)
{
    if (setting.kind == Setting::Kind::Switch) return value != 0 ? "sim" : "não";
    static constexpr int digits = 10;
    return QString::number(value, 'g', digits).replace('.', ',');
}

std::optional<double> numberFrom(const QString& typed)
{
    bool isNumber = false;
    const double value = QLocale::c().toDouble(typed.trimmed().replace(',', '.'), &isNumber);
    if (!isNumber || !std::isfinite(value) || value < 0 || value > largest) return {};
    return value;
}

} // namespace study::checks
