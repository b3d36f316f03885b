#include "places/paisesPorNome.h"

#include <QApplication>

namespace {

// Without case and accents.
QString simples(const QString& texto)
{
    QString letras;
    for (const QChar letra : texto.normalized(QString::NormalizationForm_D))
        if (!letra.isMark()) letras += letra.toLower();
    return letras;
}

} // namespace

void PaisesPorNome::keyboardSearch(const QString& letras)
{
    const Clock::Time agora = Clock::now();
    if (agora - ultima_ > std::chrono::milliseconds(QApplication::keyboardInputInterval())) escrito_.clear();
    ultima_ = agora;
    const QString acrescento = simples(letras);
    // The same letter again leads to the next country that begins with it.
    const bool mesma = !escrito_.isEmpty() && escrito_ == acrescento;
    if (!mesma) escrito_ += acrescento;
    if (escrito_.trimmed().isEmpty()) return;

    const int total = model()->rowCount();
    const int desde = currentIndex().row() + (mesma || escrito_.size() == acrescento.size() ? 1 : 0);
    for (const int parte : {1, 0}) {
        for (int passo = 0; passo < total; ++passo) {
            const QModelIndex entrada = model()->index((std::max(desde, 0) + passo) % total, 0);
            if (!simples(entrada.data().toString()).section(" - ", parte, parte ? -1 : 0).startsWith(escrito_))
                continue;
            return setCurrentIndex(entrada);
        }
    }
}
