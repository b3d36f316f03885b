#include "study/exchange/tableFiles.h"

#include "study/exchange/tables_p.h"
#include "study/report/dataPackage.h"
#include "study/report/packageFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace study::exchange {

namespace {

using report::PackageJson;

constexpr qint64 largestPackage = 64 << 20;

[[noreturn]] void refuse(const QString& path, const QString& why)
{
    throw jet::Error(jet::number::typeMismatch, QString("%1: %2").arg(QDir::toNativeSeparators(path), why));
}

class Finding
{
public:
    explicit Finding(const QString& folder) : dir_(folder) {}

    TableFiles run()
    {
        if (!dir_.exists())
            throw jet::Error(jet::number::pathNotFound, QString("A pasta \"%1\" não existe.").arg(dir_.path()));
        const QString package = dir_.filePath(report::packageFile);
        QFileInfo::exists(package) ? readPackage(package) : readFolder();
        const bool hasTable = std::ranges::any_of(found_.files, [](const TableFile& one) { return one.table; });
        if (!hasTable) refuse(dir_.path(), "não há aqui nenhuma tabela de uma BDP.");
        const auto rank = [](const TableFile& one) { return one.table ? one.table - allTables().data() : -1; };
        std::ranges::stable_sort(found_.files, {}, rank);
        return std::move(found_);
    }

private:
    void readPackage(const QString& path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly) || file.size() > largestPackage) refuse(path, "não se deixa ler.");
        const QByteArray bytes = file.readAll();
        const PackageJson package = PackageJson::parse(bytes.begin(), bytes.end(), nullptr, false);
        const auto resources = package.is_object() ? package.find("resources") : package.end();
        if (!package.is_object() || resources == package.end() || !resources->is_array())
            refuse(path, "não é a descrição de um pacote de tabelas.");
        if (report::isUnfinished(package))
            refuse(path, "a exportação para esta pasta não chegou ao fim. Exporte outra vez.");
        for (const PackageJson& resource : *resources)
            take(report::textAt(resource, "name"), report::textAt(resource, "path"), path,
                 report::textAt(resource, "hash"));
    }

    void readFolder()
    {
        for (const QFileInfo& file : dir_.entryInfoList({"*.csv"}, QDir::Files, QDir::Name))
            take(file.completeBaseName(), file.fileName(), dir_.path(), {});
    }

    // Only what lies in the folder itself: a description that somebody has sent leads nowhere else.
    void take(const QString& name, const QString& file, const QString& package, const QString& hash)
    {
        const TableInfo* table = tableOf(name);
        if (!table && name != problemTable) {
            found_.warnings.push_back({file.isEmpty() ? name : file, 0, "Ficou de fora: não é uma tabela de uma BDP."});
            return;
        }
        if (file.isEmpty() || QFileInfo(file).fileName() != file || file.contains('\\'))
            refuse(package, QString("a tabela \"%1\" não tem um ficheiro desta pasta.").arg(name));
        const QFileInfo there(dir_.filePath(file));
        if (!there.isFile()) refuse(package, QString("falta o ficheiro %1.").arg(file));
        for (const TableFile& other : found_.files)
            if (other.table == table) refuse(package, QString("a tabela \"%1\" está duas vezes.").arg(name));
        if (hash.startsWith("sha256:") && hash != report::hashOfFile(there.filePath()))
            found_.warnings.push_back({file, 0, "Foi alterado depois de escrito; entra como está."});
        found_.files.push_back({table, file, there.filePath(), there.size()});
    }

    QDir dir_;
    TableFiles found_ = {};
};

} // namespace

TableFiles filesIn(const QString& folder)
{
    return Finding(folder).run();
}

} // namespace study::exchange
