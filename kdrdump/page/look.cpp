#include "look.h"

namespace page {

char const* pageStyle()
{
    return R"CSS(
:root { color-scheme: light dark; --ground: #fff; --panel: #f5f6f8; --text: #1b1f24;
  --faint: #5b6470; --line: #d5d9df; --lit: #ffe9a3; --bar: #3b6fb6; }
@media (prefers-color-scheme: dark) {
  :root { --ground: #15181c; --panel: #1e2227; --text: #e6e8eb; --faint: #a0a8b3;
    --line: #363c44; --lit: #57480f; --bar: #6d9fe0; } }
* { box-sizing: border-box; }
body { margin: 0 auto; max-width: 90rem; padding: 1rem; background: var(--ground);
  color: var(--text); font: 1rem/1.45 system-ui, sans-serif; }
h1 { margin: 0; font-size: 1.5rem; overflow-wrap: anywhere; }
h2 { margin: 0 0 .6rem; font-size: 1.1rem; }
header p { margin: .2rem 0 1rem; color: var(--faint); overflow-wrap: anywhere; }
section { margin: 0 0 1rem; padding: .9rem; border: 1px solid var(--line);
  border-radius: .5rem; background: var(--panel); min-width: 0; }
.switches { display: flex; flex-wrap: wrap; gap: .2rem 1rem; margin: 0 0 .5rem; }
.switches label { display: inline-flex; align-items: center; gap: .35rem; }
.swatch { width: .9rem; height: .9rem; border-radius: .2rem; border: 1px solid var(--line); }
.picture { display: block; width: 100%; max-height: 85vh; touch-action: manipulation; }
.picture [data-kind] { fill: transparent; stroke-width: 1.5px;
  vector-effect: non-scaling-stroke; pointer-events: all; }
.picture g { cursor: pointer; }
.picture g.lit [data-kind] { stroke-width: 4px; }
.picture g.lit [data-kind]:first-child { fill: rgba(255, 225, 90, .45); }
.picture .area { fill-opacity: .4; stroke: none; shape-rendering: crispEdges; }
.picture g.lit .area { fill-opacity: .75; }
.picture text { fill: #fff; stroke: #000; paint-order: stroke; text-anchor: middle;
  dominant-baseline: central; user-select: none; font-family: system-ui, sans-serif; }
.readout { height: 9em; margin: .5rem 0 0; color: var(--faint); font-size: .9rem;
  overflow-y: auto; }
.frame { overflow-x: auto; }
table { border-collapse: collapse; font-size: .86rem;
  font-variant-numeric: tabular-nums; }
table.parts { width: 100%; }
.about { margin: 0 0 .4rem; color: var(--faint); font-size: .9rem; }
th, td { padding: .24rem .32rem; border-bottom: 1px solid var(--line); text-align: left; }
thead th { vertical-align: bottom; }
.number { text-align: right; }
td.number { white-space: nowrap; }
.long { min-width: 13rem; }
table.parts :is(th, td):first-child { position: sticky; left: 0; background: var(--panel); }
th button { padding: 0; border: 0; background: none; color: inherit; font: inherit;
  font-weight: 600; text-align: inherit; cursor: pointer; }
th button:hover { text-decoration: underline; }
th[aria-sort="ascending"] button::after { content: " \25B2"; }
th[aria-sort="descending"] button::after { content: " \25BC"; }
tr[data-part] { cursor: pointer; }
tr.lit, table.parts tr.lit td:first-child { background: var(--lit); }
tr:focus-visible, button:focus-visible, summary:focus-visible { outline: 2px solid var(--bar);
  outline-offset: -2px; }
.charts { display: grid; grid-template-columns: repeat(auto-fit, minmax(min(100%, 20rem), 1fr));
  gap: 1rem; }
.charts figure { margin: 0; }
.charts svg { display: block; width: 100%; max-width: 40rem; }
.charts .bar { fill: var(--bar); }
.charts .axis { stroke: var(--faint); }
.charts text { fill: var(--text); font-size: 11px; text-anchor: middle; }
.tree { margin: 0; padding-left: 1.1rem; list-style: none; overflow-wrap: anywhere; }
.tree .tree { border-left: 1px solid var(--line); }
.tree li { padding: .12rem 0; }
.tree summary { cursor: pointer; }
.name { font-weight: 600; margin-right: .4rem; }
.kind { padding: 0 .35rem; border: 1px solid var(--line); border-radius: .7rem; white-space: nowrap;
  color: var(--faint); font-size: .8rem; margin-right: .4rem; }
@media (min-width: 40rem) { .readout { height: 4.5em; } }
@media (min-width: 68rem) {
  .beside { display: grid; grid-template-columns: minmax(0, 1fr) minmax(0, 1.35fr); gap: 1rem;
    align-items: start; }
  .beside .first { position: sticky; top: 1rem; } }
)CSS";
}

char const* pageScript()
{
    return R"JS(
'use strict';
(() => {
  const all = (selector, root) => Array.from((root || document).querySelectorAll(selector));
  const readouts = all('.readout');
  const invitation = readouts.length ? readouts[0].textContent : '';
  let kept = null;

  const describe = (row) => {
    const names = all('thead th', row.closest('table')).map((head) => head.textContent);
    return Array.from(row.cells, (cell, i) => names[i] + ' ' + cell.textContent).join(', ');
  };

  const light = (part) => {
    all('[data-part]').forEach((each) => each.classList.toggle('lit', each.dataset.part === part));
    const row = part ? document.getElementById('row-' + part) : null;
    readouts.forEach((readout) => {
      const here = row ? readout.closest('.beside') === row.closest('.beside') : false;
      readout.textContent = here ? describe(row) : invitation;
    });
  };

  const partAt = (event) => {
    const place = event.target.closest('[data-part]');
    return place ? place.dataset.part : null;
  };

  document.addEventListener('pointerover', (event) => {
    if (event.pointerType !== 'touch') light(partAt(event) || kept);
  });
  document.addEventListener('click', (event) => {
    if (event.target.closest('button, label, summary, input')) return;
    const part = partAt(event);
    kept = part === kept ? null : part;
    light(kept);
  });
  document.addEventListener('focusin', (event) => {
    if (event.target.matches('tr[data-part]')) light(partAt(event));
  });
  document.addEventListener('focusout', () => light(kept));

  const compare = (a, b) => {
    const difference = Number(a) - Number(b);
    return Number.isNaN(difference) ? a.localeCompare(b) : difference;
  };

  all('th button').forEach((button) => button.addEventListener('click', () => {
    const head = button.closest('th');
    const down = head.getAttribute('aria-sort') === 'ascending';
    all('th', head.parentNode).forEach((each) => each.setAttribute('aria-sort', 'none'));
    head.setAttribute('aria-sort', down ? 'descending' : 'ascending');
    const body = head.closest('table').tBodies[0];
    const cell = (row) => row.cells[head.cellIndex].textContent;
    const rows = Array.from(body.rows);
    rows.sort((a, b) => (down ? -1 : 1) * compare(cell(a), cell(b)));
    rows.forEach((row) => body.appendChild(row));
  }));

  all('.switches input').forEach((input) => input.addEventListener('change', () => {
    const kind = '.picture [data-kind="' + input.value + '"]';
    all(kind, input.closest('section')).forEach((figure) => {
      figure.style.display = input.checked ? '' : 'none';
    });
  }));
})();
)JS";
}

} // namespace page
