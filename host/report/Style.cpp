#include "report/Style.hpp"

namespace report {

const char* const StyleSheet = R"css(:root {
  --ink: #1b1f24; --quiet: #5a6470; --paper: #ffffff; --line: #d5dae0; --band: #f3f5f7;
  --good: #0b6b3a; --note: #8a5300; --bad: #b3261e; --link: #0a55b0;
  --area: #eef1f4; --thing: #dde2e7; --cut: #6b747d;
}
@media (prefers-color-scheme: dark) {
  :root {
    --ink: #e6e9ed; --quiet: #a3adb8; --paper: #14171a; --line: #363d45; --band: #1e2328;
    --good: #5fd08f; --note: #f0b35a; --bad: #ff8a80; --link: #86b7ff;
    --area: #20262c; --thing: #353d45; --cut: #8b95a0;
  }
}
* { box-sizing: border-box; }
html { color-scheme: light dark; }
body { margin: 0; background: var(--paper); color: var(--ink);
  font: 16px/1.45 system-ui, "Segoe UI", Roboto, "Noto Sans", sans-serif; }
main { max-width: 72rem; margin: 0 auto; padding: 1rem; }
h1 { font-size: 1.6rem; line-height: 1.2; margin: .5rem 0 1rem; overflow-wrap: anywhere; }
h2 { font-size: 1.25rem; margin: 2.2rem 0 .6rem; padding-top: .4rem; border-top: 2px solid var(--line);
  overflow-wrap: anywhere; }
h3 { font-size: 1rem; margin: 1.4rem 0 .4rem; }
h3 span, nav span { color: var(--quiet); font-weight: normal; }
a { color: var(--link); }
.facts { display: grid; grid-template-columns: minmax(5rem, max-content) 1fr; gap: .25rem 1rem; margin: 0; }
dt { color: var(--quiet); }
dd { margin: 0; overflow-wrap: anywhere; min-width: 0; }
ul.sums { display: flex; flex-wrap: wrap; gap: .5rem; list-style: none; margin: 1.2rem 0; padding: 0; }
.sums li { border: 1px solid var(--line); border-radius: .4rem; padding: .35rem .7rem; }
.sums b { font-size: 1.25rem; }
.sums .good b { color: var(--good); } .sums .note b { color: var(--note); } .sums .bad b { color: var(--bad); }
nav ul { display: flex; flex-wrap: wrap; gap: .2rem 1.2rem; list-style: none; margin: 0; padding: 0; }
.open li, .notes li { margin: .3rem 0; overflow-wrap: anywhere; white-space: pre-line; }
.open .bad::marker { color: var(--bad); } .open .note::marker { color: var(--note); }
figure { margin: .5rem 0 1rem; }
svg { display: block; width: 100%; height: auto; max-height: 34rem; background: var(--paper);
  border: 1px solid var(--line); border-radius: .4rem; }
svg path, svg circle { stroke: var(--quiet); stroke-width: 1; vector-effect: non-scaling-stroke; }
svg .area { fill: var(--area); } svg .thing { fill: var(--thing); } svg .cut { fill: var(--cut); }
svg a path, svg a circle { fill-opacity: .55; stroke-width: 2; }
svg a .area { fill-opacity: .2; }
svg .good * { fill: var(--good); stroke: var(--good); }
svg .note * { fill: var(--note); stroke: var(--note); }
svg .bad * { fill: var(--bad); stroke: var(--bad); }
svg .line, svg a .line { fill: none; }
svg .gone * { fill-opacity: .1; stroke-dasharray: 4 3; }
svg a:hover *, svg a:focus * { fill-opacity: .9; }
figcaption { color: var(--quiet); font-size: .875rem; margin-top: .3rem; }
table { width: 100%; border-collapse: collapse; table-layout: fixed; }
thead th { text-align: left; font-size: .875rem; color: var(--quiet); font-weight: normal; }
td, th { padding: .3rem .6rem .3rem 0; vertical-align: top; overflow-wrap: anywhere; white-space: pre-line; }
tbody th { text-align: left; font-weight: normal; background: var(--band); padding: .4rem .6rem; }
tbody td { border-bottom: 1px solid var(--line); }
tbody td:first-child, thead th:first-child { padding-left: .6rem; }
tbody td:nth-child(2) { color: var(--quiet); }
tbody .id { color: var(--quiet); font-size: .8125rem; }
tr.good td:nth-child(3) { font-weight: 600; }
tr.note td:nth-child(4) { color: var(--note); } tr.bad td:nth-child(4) { color: var(--bad); }
tbody:target th { outline: 2px solid var(--link); outline-offset: -2px; }
@media (max-width: 40rem) {
  body { font-size: 15px; }
  main { padding: .75rem; }
  table, thead, tbody, tr, td, tbody th { display: block; width: 100%; }
  thead { display: none; }
  tbody td { border: 0; padding: .1rem .6rem .1rem 5.2rem; position: relative; min-height: 1.6rem; }
  tbody td:first-child { padding-left: .6rem; font-weight: 600; padding-top: .4rem; }
  tbody td:last-child { border-bottom: 1px solid var(--line); padding-bottom: .4rem; }
  tbody td::before { position: absolute; left: .6rem; color: var(--quiet); font-weight: normal; }
  tbody td:empty { display: none; }
  td:nth-child(2)::before { content: "Old"; } td:nth-child(3)::before { content: "New"; }
  td:nth-child(4)::before { content: "Remark"; }
}
@media print {
  :root { --ink: #000; --quiet: #444; --paper: #fff; --line: #bbb; --band: #f0f0f0; --good: #06552d; --note: #6f4300;
    --bad: #9a1b14; --link: #000; --area: #f2f2f2; --thing: #e0e0e0;
    --cut: #707070; }
  @page { margin: 15mm; }
  body { font-size: 10pt; }
  main { max-width: none; padding: 0; }
  nav { display: none; }
  a { text-decoration: none; }
  h2, h3 { break-after: avoid; }
  tr, figure, .sums li { break-inside: avoid; }
  tbody th { break-after: avoid; print-color-adjust: exact; -webkit-print-color-adjust: exact; }
  svg { max-height: 11cm; print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
)css";

}  // namespace report
