#include "platform/jet/errors.h"

#include "platform/jet/columns.h"
#include "platform/jet/disk.h"
#include "platform/jet/wordings.h"

#include <QRandomGenerator>

#include <sqlite3.h>

#include <optional>

namespace jet {

namespace {

// Nobody can guess it: no text of a file may speak with the voice of the program.
const QString& mark()
{
    static const QString drawn = QStringLiteral("jet %1:").arg(QRandomGenerator::system()->generate64(), 0, 36);
    return drawn;
}

// "tabela.coluna" and more of it, behind the colon of a message about a constraint; an index stands by its name.
QString subject(const QString& message)
{
    const QString named = message.section(QStringLiteral(": "), 1);
    return named.startsWith(QLatin1String("index '")) ? "índice " + named.section(u'\'', 1, -2) : named;
}

QString checkDescription(sqlite3* database, const QString& message)
{
    const QString table = subject(message).section(u'.', 0, 0);
    const QString column = subject(message).section(u'.', 1);
    const QString declared = declaredType(database, table, column);
    const QString where = QStringLiteral("da coluna \"%1\" da tabela \"%2\"").arg(column, table);
    switch (typeOf(declared)) {
    case Type::Text:
        return QStringLiteral("O texto %1 é demasiado longo: a coluna leva no máximo %2 caracteres.")
            .arg(where, declared.section(u'(', 1).section(u')', 0, 0));
    case Type::Date:
        return QStringLiteral("O valor %1 não é uma data.").arg(where);
    case Type::Bit:
        return QStringLiteral("O valor %1 só pode ser verdadeiro ou falso.").arg(where);
    case Type::Number:
        if (declared.compare(u"long", Qt::CaseInsensitive) != 0)
            return QStringLiteral("O valor %1 não é um número.").arg(where);
        return QStringLiteral("O valor %1 não é um número entre %2 e %3.")
            .arg(where)
            .arg(smallestLong)
            .arg(largestLong);
    case Type::Unknown:
        break;
    }
    return QStringLiteral("O valor não respeita a condição \"%1\".").arg(subject(message));
}

Error constraintError(sqlite3* database, int code, const QString& message)
{
    switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return {number::duplicateKey,
                QStringLiteral("Já existe um registo com a mesma chave (%1).").arg(subject(message))};
    case SQLITE_CONSTRAINT_NOTNULL:
        return {number::invalidStatement,
                QStringLiteral("A coluna %1 não pode ficar sem valor.").arg(subject(message))};
    case SQLITE_CONSTRAINT_CHECK:
        return {number::invalidStatement, checkDescription(database, message)};
    default:
        return {number::invalidStatement, constraintDescription(message, code)};
    }
}

// A message of one of our own functions, which carries its number.
std::optional<Error> readMarked(const QString& message)
{
    if (!message.startsWith(mark())) return {};
    return Error{message.section(u':', 1, 1).toLong(), message.section(u':', 2)};
}

} // namespace

Error engineError(sqlite3* database, int code, const QString& path)
{
    const QString file = targetOf(path); // the name that the user gave
    const QString message = QString::fromUtf8(database ? sqlite3_errmsg(database) : sqlite3_errstr(code));
    if (const auto own = readMarked(message)) return *own;
    if (code == SQLITE_READONLY_DBMOVED)
        return {number::engineFailure,
                QStringLiteral("O ficheiro \"%1\" já não é a BDP que está aberta: foi mudado de lugar, eliminado ou "
                               "substituído por outro. Nada mais pode ser escrito nela; faça uma cópia de segurança e "
                               "continue a trabalhar na cópia.")
                    .arg(file)};
    switch (code & 0xff) {
    case SQLITE_ERROR:
        return {number::invalidStatement, statementDescription(message, code, file)};
    case SQLITE_CONSTRAINT:
        return constraintError(database, code, message);
    case SQLITE_MISMATCH:
        return {number::typeMismatch, QStringLiteral("O tipo do valor não é o da coluna.")};
    case SQLITE_RANGE:
    case SQLITE_TOOBIG:
        return {number::invalidStatement, QStringLiteral("A instrução ou um dos seus valores é demasiado grande.")};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {number::engineFailure,
                QStringLiteral("O ficheiro \"%1\" está a ser usado por outro programa.").arg(file)};
    case SQLITE_NOTADB:
        return {number::engineFailure, QStringLiteral("O ficheiro \"%1\" não é uma BDP.").arg(file)};
    case SQLITE_CORRUPT:
        return {number::engineFailure, QStringLiteral("O ficheiro \"%1\" está danificado ou incompleto.").arg(file)};
    case SQLITE_FULL:
        return {number::diskFull, QStringLiteral("O disco está cheio: não foi possível escrever em \"%1\".").arg(file)};
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
        return {number::permissionDenied,
                QStringLiteral("Não é permitido abrir ou escrever o ficheiro \"%1\".").arg(file)};
    case SQLITE_AUTH:
        return {number::invalidStatement,
                QStringLiteral("A instrução não é permitida: só se lêem e escrevem as tabelas da BDP.")};
    case SQLITE_INTERRUPT:
        // One that only reads leaves what its transaction has written.
        return {number::engineFailure, database && sqlite3_txn_state(database, "main") == SQLITE_TXN_WRITE
                                           ? QStringLiteral("A operação foi interrompida com a tecla Escape.")
                                           : QStringLiteral("A operação foi interrompida com a tecla Escape: nada foi "
                                                            "escrito.")};
    case SQLITE_NOMEM:
        return {number::outOfMemory, QStringLiteral("Não há memória suficiente.")};
    default:
        return {number::engineFailure,
                QStringLiteral("Não foi possível ler ou escrever o ficheiro \"%1\": o disco falhou, ou não deixa "
                               "guardar mais nada.")
                    .arg(file)};
    }
}

QString markedMessage(long number, const QString& description)
{
    return mark() + QString::number(number) + u':' + description;
}

Error invalidStatement(const QString& description)
{
    return {number::invalidStatement, description};
}

Error noCurrentRow()
{
    return {number::noCurrentRow, QStringLiteral("Não há registo corrente: o cursor está antes do primeiro registo, "
                                                 "depois do último, ou num registo eliminado.")};
}

Error noSuchField(const QString& field)
{
    return {number::noSuchField, QStringLiteral("O campo \"%1\" não existe na consulta.").arg(field)};
}

Error recordsetClosed()
{
    return {number::objectClosed, QStringLiteral("A operação não é possível com a consulta fechada.")};
}

Error connectionClosed()
{
    return {number::connectionClosed, QStringLiteral("Não há nenhuma BDP aberta.")};
}

} // namespace jet
