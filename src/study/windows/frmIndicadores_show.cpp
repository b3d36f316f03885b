// What the window of indicators shows of a subject: tables, charts, how it was counted.
#include "study/windows/frmIndicadores.h"

#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "study/indicators/tallyJson.h"
#include "study/report/drawing.h"
#include "study/report/files.h"
#include "study/report/origin.h"

#include <QBuffer>
#include <QFileInfo>
#include <QSignalBlocker>

#include <algorithm>

using namespace study;
using report::Chart;
using report::Table;

namespace {

constexpr QSize pictureSize(900, 560);
constexpr qreal pictureScale = 2; // of a picture in pixels, for paper
constexpr auto noData = "sem dados";

// The entry chosen stays so, where there is one of the same title.
template <class Figures>
void fillList(ComboBox& list, const Figures& figures)
{
    const QSignalBlocker quiet(&list);
    const QString before = list.text();
    list.clear();
    for (const auto& figure : figures)
        list.add(figure.title);
    const int same = list.findText(before);
    list.setListIndex(figures.empty() ? -1 : std::max(0, before.isEmpty() ? 0 : same));
    list.setEnabled(!figures.empty());
}

template <class Figures>
auto chosenOf(const ComboBox& list, const Figures& figures) -> const typename Figures::value_type*
{
    const int entry = list.listIndex();
    return entry < 0 || entry >= static_cast<int>(figures.size()) ? nullptr : &figures[static_cast<std::size_t>(entry)];
}

QByteArray pngOf(const Chart& chart)
{
    QImage image = report::imageOf(chart, pictureSize, {}, pictureScale);
    image.setText("Title", chart.title);
    image.setText("Description", chart.described);
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    image.save(&bytes, "PNG");
    return bytes.data();
}

} // namespace

const Table* FrmIndicadores::shownTable() const
{
    return chosenOf(*cmbQuadro, sheet_.tables);
}

const Table* FrmIndicadores::leftOutTable() const
{
    return sheet_.leftOut.empty() ? nullptr : &sheet_.leftOut.front();
}

const Table* FrmIndicadores::tableInFront() const
{
    const QWidget* page = tabPaginas->currentWidget();
    return page == pagQuadros ? shownTable() : page == pagNaoContados ? leftOutTable() : nullptr;
}

const Chart* FrmIndicadores::shownChart() const
{
    return chosenOf(*cmbGrafico, sheet_.charts);
}

// The figures of the subject chosen where it is counted; nothing otherwise, but how it is counted. The grids let go of
// the tables before these go.
void FrmIndicadores::showSubject()
{
    static const Table none = {};
    fillGrid(*dtgQuadro, none);
    fillGrid(*dtgNaoContados, none);
    const SubjectSheet* made = sheet();
    sheet_ = made ? *made : SubjectSheet{};
    sheetOf_ = made ? subject_ : nullptr;
    clearBehind();
    txtResposta->clear();
    lblTema->setText(subject_ ? QString::fromUtf8(subject_->title) : QString());
    showMethod();
    fillList(*cmbQuadro, sheet_.tables);
    fillList(*cmbGrafico, sheet_.charts);
    showTable();
    showChart();
    const Table* leftOut = leftOutTable();
    if (leftOut) fillGrid(*dtgNaoContados, *leftOut);
    lblNaoContados->setText(!sheetOf_                         ? QString()
                            : leftOut && hasAnybody(*leftOut) ? notesOf(*leftOut)
                                                              : QString("Nada ficou de fora."));
    lblNaoContados->setVisible(!lblNaoContados->text().isEmpty());
    offerCommands();
}

void FrmIndicadores::showMethod()
{
    QString text = subject_ ? QString::fromUtf8(subject_->method) : QString();
    const QStringList altered = sheetOf_ ? indicators::whatDiffers(base_->study->settings, {}) : QStringList();
    if (!altered.isEmpty()) text += "\r\nContado com definições alteradas: " + altered.join("; ") + '.';
    if (sheetOf_) text += "\r\n" + report::originText(base_->source) + '.';
    txtMetodo->setText(text);
}

void FrmIndicadores::showTable()
{
    static const Table none = {};
    const Table* table = shownTable();
    fillGrid(*dtgQuadro, table ? *table : none);
    txtNotas->setText(table ? notesOf(*table) : QString(sheetOf_ ? noData : ""));
    tellCell();
    offerCommands();
}

// What the chosen cell says in full; a screen reader meets it, too.
void FrmIndicadores::tellCell()
{
    const Table* table = shownTable();
    lblCelula->setText(table ? toldOf(*table, dtgQuadro->currentIndex()) : QString());
}

void FrmIndicadores::showChart()
{
    const Chart* chart = shownChart();
    txtGrafico->setText(chart ? chart->described : QString(sheetOf_ ? noData : ""));
    grafico->setAccessibleDescription(chart ? chart->described : QString());
    drawChart();
    offerCommands();
}

// In the colours of the desktop. The view gives the drawing before back, and doesn't end it.
void FrmIndicadores::drawChart()
{
    static const Chart none = {};
    const Chart* chart = shownChart();
    const std::unique_ptr<QChart> before(grafico->chart());
    auto next = sheetOf_ ? report::drawn(chart ? *chart : none, {palette(), false}) : std::make_unique<QChart>();
    if (chart && !chart->isEmpty()) next->setTitle({}); // it stands in the list above
    next->setBackgroundBrush(palette().color(QPalette::Base));
    grafico->setBackgroundBrush(palette().color(QPalette::Base));
    grafico->setChart(next.release());
}

// As a drawing or as a picture, by the suffix.
void FrmIndicadores::cmdGravar_Click()
{
    if (!shownChart() || shownChart()->isEmpty()) return;
    Chart chart = *shownChart();
    chart.described = QStringList{chart.described, report::originText(base_->source)}.join(' ').trimmed();
    const QString path =
        saveFileName("Desenho SVG (*.svg)|*.svg|Imagem PNG (*.png)|*.png", "Gravar o gráfico: " + chart.title);
    if (path.isEmpty()) return;
    const QString name = '"' + QFileInfo(path).fileName() + '"';
    if (QFileInfo::exists(path)) {
        if (QFileInfo(path).canonicalFilePath() == QFileInfo(cnBDP.dataSource()).canonicalFilePath())
            return showMessage("O ficheiro " + name + " é a própria BDP.");
        if (!ask("O ficheiro " + name + " já existe. Deseja substituí-lo?")) return;
    }
    const Hourglass hourglass;
    const bool isPicture = path.endsWith(".png", Qt::CaseInsensitive);
    report::writeWhole(path, isPicture ? pngOf(chart) : report::svgOf(chart, pictureSize));
    showStatus("Gráfico gravado em " + name + '.');
}
