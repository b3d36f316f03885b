#include "store/copiaDiaria.h"

#include "platform/forms/statusline.h"
#include "platform/jet/claim.h"
#include "platform/jet/copy.h"
#include "platform/jet/disk.h"
#include "platform/jet/draft.h"
#include "store/copiasGuardadas.h"
#include "store/session.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <atomic>
#include <memory>
#include <thread>

namespace {

constexpr auto nomeDaPasta = "copias";
constexpr int esperaHabitual = 60; // milliseconds: not felt by who types

// What the thread works on, and nothing of the session.
struct Trabalho
{
    QString bdp;
    QString destino;
    QDate hoje;
    jet::Draft rascunho;
    bool inteiro = false; // its pages are there already
};

// Not from under a program that has it open.
void retira(const QString& copia)
{
    jet::Claim posse;
    if (posse.take(copia) != jet::Claim::Outcome::Held) jet::disk().remove(copia);
}

void retiraAntigas(const Trabalho& trabalho)
{
    const QDir pasta(jet::folderOf(trabalho.destino));
    QList<QDate> dias;
    for (const QFileInfo& copia : pasta.entryInfoList(QDir::Files | QDir::NoSymLinks))
        if (const QDate dia = diaDaCopia(trabalho.bdp, copia.fileName()); dia.isValid()) dias << dia;
    const QList<QDate> aSair = copiasASair(dias, trabalho.hoje);
    for (const QDate& dia : aSair)
        retira(pasta.filePath(nomeDaCopia(trabalho.bdp, dia)));
    if (!aSair.isEmpty()) jet::disk().syncFolder(pasta.path());
}

class CopiaDiaria
{
public:
    void antesDeEscrever();
    void antesDeFechar();
    void espera();
    QString garante();

    std::function<QDate()> hoje = QDate::currentDate;
    std::chrono::milliseconds demora{esperaHabitual};

private:
    void faz();
    void acaba(Trabalho& trabalho);
    void conta(const QString& texto, const QString& pormenor);

    QDate dia_; // the last one on which a copy was tried
    std::thread fundo_;
    std::atomic<bool> larga_ = false;
    QString falha_;               // of the last copy; read when no thread works on one
    std::atomic<int> sessao_ = 0; // what is told of one BDP isn't told in the next
};

// Never destroyed: cnBDP may outlive what is.
CopiaDiaria& copiaDiaria()
{
    static auto& unica = *new CopiaDiaria;
    return unica;
}

void CopiaDiaria::antesDeEscrever()
{
    const QDate agora = hoje();
    if (agora == dia_) return;
    dia_ = agora;
    try {
        faz();
    } catch (const std::exception& erro) {
        conta("Sem cópia diária: " + QString::fromUtf8(erro.what()), QString::fromUtf8(erro.what()));
    }
}

void CopiaDiaria::faz()
{
    const QFileInfo bdp(QFileInfo(cnBDP.dataSource()).canonicalFilePath());
    if (!bdp.isFile() || bdp.dir().dirName() == QLatin1String(nomeDaPasta) || cnBDP.hasMoved()) return;
    const QString pasta = pastaDasCopias(bdp.filePath());
    const QString destino = pasta + '/' + nomeDaCopia(bdp.fileName(), dia_);
    if (QFileInfo(destino).exists() || QFileInfo(destino).isSymLink()) return;

    larga_ = true;
    espera();
    falha_.clear();
    larga_ = false;
    // The work of the day needs the disk more than its copy does.
    if (jet::disk().available(bdp.path()) < 2 * std::uintmax_t(bdp.size()))
        throw jet::writeError(std::make_error_code(std::errc::no_space_on_device), destino);
    if (const auto erro = jet::disk().makeFolder(pasta)) throw jet::writeError(erro, pasta);
    std::shared_ptr<Trabalho> trabalho(new Trabalho{bdp.filePath(), destino, dia_, jet::Draft(destino)});
    QFile::setPermissions(trabalho->rascunho.path(), bdp.permissions());
    trabalho->inteiro = cnBDP.copyPages(trabalho->rascunho.path(), destino, demora);
    fundo_ = std::thread([this, trabalho] { acaba(*trabalho); });
}

// On the thread.
void CopiaDiaria::acaba(Trabalho& trabalho)
{
    const QString caminho = QDir::toNativeSeparators(trabalho.destino);
    try {
        if (!trabalho.inteiro && !jet::copyInSteps(trabalho.bdp, trabalho.rascunho.path(), trabalho.destino, larga_))
            return;
        trabalho.rascunho.place();
        jet::disk().syncFolder(QFileInfo(trabalho.bdp).path()); // where the folder of the copies may be new
        retiraAntigas(trabalho);
        conta(QStringLiteral("Cópia diária guardada em %1/%2")
                  .arg(QLatin1String(nomeDaPasta), QFileInfo(trabalho.destino).fileName()),
              "A BDP, tal como estava antes do trabalho de hoje, foi guardada em " + caminho);
    } catch (const std::exception& erro) {
        falha_ = QString::fromUtf8(erro.what());
        conta("Sem cópia diária: " + falha_, falha_);
    }
}

// Tried again where it has failed before.
QString CopiaDiaria::garante()
{
    dia_ = hoje();
    try {
        faz();
    } catch (const std::exception& erro) {
        return QString::fromUtf8(erro.what());
    }
    espera();
    const QFileInfo bdp(QFileInfo(cnBDP.dataSource()).canonicalFilePath());
    if (QFileInfo::exists(pastaDasCopias(bdp.filePath()) + '/' + nomeDaCopia(bdp.fileName(), dia_))) return {};
    return falha_.isEmpty() ? QString("as cópias desta BDP não se guardam nesta pasta.") : falha_;
}

void CopiaDiaria::conta(const QString& texto, const QString& pormenor)
{
    if (!QCoreApplication::instance()) return;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [this, texto, pormenor, sessao = sessao_.load()] {
            if (sessao == sessao_) showStatusNote(texto, pormenor);
        },
        Qt::QueuedConnection);
}

void CopiaDiaria::antesDeFechar()
{
    larga_ = true;
    espera();
    ++sessao_;
    dia_ = {};
    if (QCoreApplication::instance()) showStatusNote({}, {});
}

void CopiaDiaria::espera()
{
    if (fundo_.joinable()) fundo_.join();
}

} // namespace

void vigiaCopiaDiaria()
{
    cnBDP.setObserver({[] { copiaDiaria().antesDeEscrever(); }, [] { copiaDiaria().antesDeFechar(); }});
}

QString pastaDasCopias(const QString& bdp)
{
    return QFileInfo(QFileInfo(bdp).canonicalFilePath()).dir().filePath(nomeDaPasta);
}

void esperaCopiaDiaria()
{
    copiaDiaria().espera();
}

QString garanteCopiaDeHoje()
{
    return copiaDiaria().garante();
}

void setDiaDaCopia(std::function<QDate()> hoje)
{
    copiaDiaria().hoje = hoje ? std::move(hoje) : QDate::currentDate;
}

void setEsperaDaCopia(int milissegundos)
{
    copiaDiaria().demora = std::chrono::milliseconds(milissegundos < 0 ? esperaHabitual : milissegundos);
}
