// How the page looks on a screen, on a telephone and on A4.
#include "study/report/page_p.h"

namespace study::report {

QString pageStyle()
{
    return QStringLiteral(R"(
:root { color-scheme: light; }
* { box-sizing: border-box; }
html { scroll-behavior: auto; -webkit-text-size-adjust: 100%; }
body { margin: 0 auto; max-width: 60rem; padding: 1.5rem 1rem 4rem; background: #fff; color: #1a1a1a;
  font: 1rem/1.5 "DejaVu Serif", Georgia, "Times New Roman", serif; overflow-wrap: break-word; }
h1, h2, h3, nav, table, figcaption, .legenda, .notas, dl { font-family: "DejaVu Sans", Verdana, Arial, sans-serif; }
h1 { font-size: 1.9rem; line-height: 1.2; margin: 0 0 .3rem; }
h2 { font-size: 1.5rem; line-height: 1.25; margin: 3rem 0 1rem; padding-bottom: .3rem; border-bottom: 2px solid #1a1a1a; }
h3 { font-size: 1.15rem; line-height: 1.3; margin: 2.2rem 0 .5rem; }
a { color: #004c8c; }
.paroquia { font-size: 1.2rem; margin: 0 0 1.5rem; color: #444; }
.metodo { margin: 0 0 1rem; color: #333; }
nav ol { margin: .2rem 0; padding-left: 0; list-style: none; font-size: .92rem; }
nav ol ol { padding-left: 1.6rem; margin-bottom: .6rem; }
nav li { margin: .15rem 0; }
dl { display: grid; grid-template-columns: minmax(6rem, max-content) 1fr; gap: .15rem 1rem; font-size: .85rem;
  margin: .5rem 0 1.2rem; }
dt { color: #444; }
dd { margin: 0; overflow-wrap: anywhere; }
figure { margin: 1.2rem 0 1.8rem; }
figcaption, caption { font-weight: 700; font-size: .9rem; line-height: 1.35; text-align: left; padding: 0 0 .4rem; }
caption span { display: inline-block; position: sticky; left: 0; max-width: calc(100vw - 2rem); white-space: normal; }
.rola { overflow-x: auto; }
.rola:focus-visible { outline: 2px solid #004c8c; outline-offset: 2px; }
table { border-collapse: collapse; font-size: .82rem; line-height: 1.35; font-variant-numeric: tabular-nums; min-width: 40%; }
thead { border-top: 2px solid #1a1a1a; border-bottom: 1px solid #1a1a1a; }
tbody { border-bottom: 2px solid #1a1a1a; }
th, td { padding: .25rem .6rem; vertical-align: top; text-align: left; font-weight: 400; }
thead th { font-weight: 700; vertical-align: bottom; }
thead th small { display: block; font-weight: 400; }
tbody tr:nth-child(even) { background: #f3f5f7; }
.n { text-align: right; }
td.n { white-space: nowrap; }
td small { display: block; color: #444; font-size: .82em; }
.c { color: #5c5c5c; font-style: italic; }
.s { color: #5c5c5c; }
.legenda, .notas { font-size: .76rem; line-height: 1.4; color: #333; margin: .4rem 0 0; }
.notas { padding-left: 1.1rem; }
.grafico svg { display: block; width: 100%; max-width: 45rem; height: auto; }
.vazio { font-style: italic; color: #444; margin: .2rem 0; }
@media (max-width: 30rem) {
  h1 { font-size: 1.5rem; }
  h2 { font-size: 1.25rem; }
  dl { grid-template-columns: 1fr; gap: 0; }
  dd { margin-bottom: .4rem; }
  .grafico svg { min-width: 32rem; }
}
@media screen {
  tbody tr { background: #fff; }
  thead th:first-child { background: #fff; }
  thead th:first-child, tbody th { position: sticky; left: 0; }
  tbody th { background: inherit; min-width: 8.5em; }
}
@page { size: A4; margin: 18mm 16mm 20mm;
  @bottom-center { content: counter(page); font: 8pt "DejaVu Sans", Verdana, Arial, sans-serif; } }
@media print {
  body { max-width: none; padding: 0; font-size: 10pt; }
  a { color: inherit; text-decoration: none; }
  section.capitulo { break-before: page; }
  h2 { margin-top: 7mm; }
  .capitulo > h2 { margin-top: 0; }
  h2, h3, figcaption, caption { break-after: avoid; }
  .metodo { break-inside: avoid; break-after: avoid; orphans: 3; widows: 3; }
  figure.grafico { break-inside: avoid; }
  .grafico svg { min-width: 0; max-width: 150mm; }
  .rola { overflow: visible; }
  table { font-size: 8.5pt; line-height: 1.2; }
  th, td { padding: .15rem .6rem; }
  table.larga { font-size: 7.5pt; }
  table.larguissima { font-size: 5.5pt; }
  .larga th, .larga td { padding: .15rem .3rem; }
  .larguissima th, .larguissima td { padding: .1rem .15rem; }
  .larga td small { white-space: normal; }
  table.imensa thead th.n { writing-mode: sideways-lr; writing-mode: vertical-rl; height: 13em; vertical-align: middle; }
  thead { display: table-header-group; break-after: avoid; }
  tr, .curto { break-inside: avoid; }
  tbody, tbody tr:nth-child(-n+3) { break-before: avoid; }
  .legenda { break-before: avoid; font-size: 7.5pt; }
  .notas { font-size: 7.5pt; }
  tbody tr:nth-child(even) { -webkit-print-color-adjust: exact; print-color-adjust: exact; }
}
)");
}

} // namespace study::report
