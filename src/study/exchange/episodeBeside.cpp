// What stands beside the data: the dictionary of the columns, and a script for R.
#include "study/exchange/episodes_p.h"

namespace study::exchange {

namespace {

QString typeOf(Kind kind)
{
    switch (kind) {
    case Kind::Text:
        break;
    case Kind::Whole:
        return "integer";
    case Kind::Number:
        return "number";
    case Kind::Day:
        return "date";
    case Kind::Flag:
        return "boolean";
    }
    return "string";
}

void addTable(const TableInfo& table, EpisodeFile& file)
{
    for (const TableColumn& column : table.columns) {
        file.text(table.name);
        file.text(column.name);
        file.text(typeOf(column.kind));
        file.flag(table.key.contains(column.name));
        file.text(column.words.join(' '));
        file.text(column.table.isEmpty() ? QString() : column.table + '.' + column.key);
        file.text(column.portuguese);
        file.text(column.english);
        file.endRow();
    }
}

} // namespace

void writeDictionary(EpisodeFile& file)
{
    for (const EpisodeTable& table : episodeTables())
        addTable(table.info, file);
    addTable(leftOutTable(), file);
    addTable(dictionaryTable(), file);
}

QByteArray episodeScript()
{
    return R"(# Um modelo de sobrevivência com os episódios de uma paróquia.
#
#   Rscript episodios.R [PASTA]
#
# Precisa do R e do pacote survival, que vem com ele. PASTA é a dos ficheiros; se não for dita, é a do trabalho.
# As colunas de cada ficheiro estão em dicionario.csv.
library(survival)

argumentos <- commandArgs(trailingOnly = TRUE)
pasta <- if (length(argumentos) > 0) argumentos[1] else "."

ler <- function(nome) {
  read.csv(file.path(pasta, paste0(nome, ".csv")), encoding = "UTF-8", na.strings = "", stringsAsFactors = FALSE)
}

# A mortalidade até aos 15 anos: cada linha é um período da vida de uma criança, de enter a exit (anos exactos), e
# event diz se ele acaba na morte. A morte da mãe muda de linha para linha.
criancas <- ler("mortalidade_infancia")
stopifnot(all(criancas$enter < criancas$exit))
criancas <- criancas[criancas$sex %in% c("m", "f"), ]
criancas$sex <- factor(criancas$sex, levels = c("f", "m"))
cat(sprintf("%d períodos de %d crianças; %d óbitos em %.1f anos.\n", nrow(criancas), length(unique(criancas$id)),
            sum(criancas$event), sum(criancas$days) / 365.25))

# As crianças da mesma família parecem-se: os erros-padrão são por família.
criancas$grupo <- ifelse(is.na(criancas$family), -criancas$id, criancas$family)
modelo <- coxph(Surv(enter, exit, event) ~ sex + mother_dead, data = criancas, cluster = grupo)
print(summary(modelo))

# Os outros ficheiros lêem-se da mesma maneira:
#   fecundidade          Surv(age_enter, age_exit, event), ou Surv(since_enter, since_exit, event) para os intervalos
#   mortalidade_adultos  Surv(enter, exit, event)
#   nupcialidade         Surv(enter, exit, event)
#   recasamento          Surv(enter, exit, event)
# e pessoas e familias juntam-se-lhes por id e por family:
#   merge(criancas, ler("familias"), by = "family")
)";
}

} // namespace study::exchange
