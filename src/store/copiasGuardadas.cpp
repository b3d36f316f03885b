#include "store/copiasGuardadas.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <functional>
#include <utility>

namespace {

constexpr int dias = 7;
constexpr int semanas = 4;
constexpr int meses = 12;

constexpr auto formato = "yyyy-MM-dd";

using Periodo = std::pair<int, int>;

Periodo dia(const QDate& data)
{
    return {data.year(), data.dayOfYear()};
}

Periodo semana(const QDate& data)
{
    int ano = 0;
    const int numero = data.weekNumber(&ano);
    return {ano, numero};
}

Periodo mes(const QDate& data)
{
    return {data.year(), data.month()};
}

// Of days in falling order, the first one of each of the first periods.
void guarda(const QList<QDate>& todos, int quantos, Periodo (*periodo)(const QDate&), QSet<QDate>& ficam)
{
    Periodo ultimo{0, 0};
    for (const QDate& data : todos) {
        if (periodo(data) == ultimo) continue;
        if (quantos-- == 0) return;
        ultimo = periodo(data);
        ficam << data;
    }
}

QString sufixo(const QString& bdp)
{
    const QString texto = QFileInfo(bdp).suffix();
    return texto.isEmpty() ? texto : '.' + texto;
}

QString inicio(const QString& bdp)
{
    const QString nome = QFileInfo(bdp).fileName();
    return nome.chopped(sufixo(bdp).size()) + '_';
}

} // namespace

QString nomeDaCopia(const QString& bdp, const QDate& data)
{
    return inicio(bdp) + data.toString(formato) + sufixo(bdp);
}

QDate diaDaCopia(const QString& bdp, const QString& nome)
{
    const QString primeiro = inicio(bdp);
    const QString data = nome.mid(primeiro.size(), 10);
    const QDate lida = QDate::fromString(data, formato);
    return lida.isValid() && nome == nomeDaCopia(bdp, lida) ? lida : QDate();
}

QList<QDate> copiasASair(QList<QDate> todos, const QDate& hoje)
{
    todos.removeIf([&](const QDate& data) { return data > hoje; });
    std::sort(todos.begin(), todos.end(), std::greater<>());
    QSet<QDate> ficam;
    guarda(todos, dias, dia, ficam);
    guarda(todos, semanas, semana, ficam);
    guarda(todos, meses, mes, ficam);
    todos.removeIf([&](const QDate& data) { return ficam.contains(data); });
    return todos;
}
