// SPDX-License-Identifier: Apache-2.0

// The report's style sheet.
#pragma once

namespace zelctl {

inline constexpr const char* kPageStyle = R"(
:root { color-scheme: light dark; --back: #ffffff; --card: #f6f7f9; --ink: #1b1f24;
  --soft: #59636e; --grid: #dfe3e8; --link: #0b57d0; --target: #2266dd; --shown: #c25700;
  --measured: #0a7d55; --red: #cc2b2b; --green: #1f8a3b; --blue: #2a57d8; --mark: #a1360b; }
@media (prefers-color-scheme: dark) {
  :root { --back: #111418; --card: #1a1f25; --ink: #e8ebef; --soft: #a3adb8; --grid: #313942;
    --link: #8ab4f8; --target: #7aa9ff; --shown: #ff9d4d; --measured: #46cf9b; --red: #ff7070;
    --green: #5fd07b; --blue: #86a4ff; --mark: #ffa27a; } }
* { box-sizing: border-box; }
body { margin: 0; background: var(--back); color: var(--ink);
  font: 15px/1.5 system-ui, -apple-system, "Segoe UI", Roboto, "DejaVu Sans", sans-serif; }
main { max-width: 1240px; margin: 0 auto; padding: 12px 16px 48px; }
h1 { font-size: 1.6rem; line-height: 1.25; margin: 12px 0; overflow-wrap: anywhere; }
h2 { font-size: 1.3rem; margin: 40px 0 4px; padding-top: 12px; border-top: 2px solid var(--grid);
  overflow-wrap: anywhere; }
h3 { font-size: 0.95rem; margin: 0 0 6px; }
p { margin: 6px 0 12px; max-width: 80ch; overflow-wrap: anywhere; }
a { color: var(--link); fill: var(--link); }
dl { display: grid; grid-template-columns: repeat(auto-fit, minmax(150px, 1fr)); gap: 8px 20px;
  margin: 12px 0; }
dt { color: var(--soft); font-size: 0.85rem; }
dd { margin: 0; font-weight: 600; overflow-wrap: anywhere; }
.figures { display: grid; gap: 14px; margin: 14px 0;
  grid-template-columns: repeat(auto-fill, minmax(min(100%, 350px), 1fr)); }
@media (min-width: 800px) { .wide { grid-column: span 2; } }
figure { margin: 0; padding: 12px; background: var(--card); border-radius: 10px; }
figure > svg { display: block; width: 100%; max-width: 460px; height: auto; margin: 0 auto; }
figcaption { color: var(--soft); font-size: 0.78rem; line-height: 1.4; margin-top: 6px; }
svg { font-size: 11.5px; fill: var(--ink); }
svg .small { font-size: 11px; }
svg .label { paint-order: stroke; stroke: var(--card); stroke-width: 3px; stroke-linejoin: round; }
.grid { stroke: var(--grid); fill: none; }
.line { fill: none; stroke-width: 2; stroke: var(--ink); stroke-linejoin: round; }
.dot { stroke: var(--card); stroke-width: 1; }
.line.target { stroke: var(--target); stroke-dasharray: 6 4; }
.line.adapted { stroke: var(--target); stroke-width: 1.3; stroke-dasharray: 1.5 3; }
.line.shown { stroke: var(--shown); }
.line.measured { stroke: var(--measured); }
.line.panel { stroke-width: 1.6; }
.line.locus { stroke: var(--soft); stroke-width: 1; }
.line.red { stroke: var(--red); } .line.green { stroke: var(--green); }
.line.blue { stroke: var(--blue); }
.shown-area { fill: var(--shown); fill-opacity: 0.14; }
.dot.shown, .bar.shown { fill: var(--shown); } .dot.target, .bar.target { fill: var(--target); }
.dot.measured { fill: var(--measured); } .dot.ink, .bar.ink { fill: var(--ink); }
.dot.red, .bar.red { fill: var(--red); } .dot.green, .bar.green { fill: var(--green); }
.dot.blue, .bar.blue { fill: var(--blue); }
.bar.unreachable { fill: var(--card); stroke: var(--soft); stroke-dasharray: 2 2; }
.edge { fill: none; stroke: var(--grid); }
.edge.out { stroke: var(--mark); stroke-width: 2; stroke-dasharray: 4 3; }
.scroll { overflow-x: auto; margin: 10px 0; border-radius: 8px; background: var(--card); }
table { border-collapse: collapse; font-size: 0.84rem; font-variant-numeric: tabular-nums;
  width: 100%; }
th, td { padding: 5px 10px; text-align: left; white-space: nowrap;
  border-bottom: 1px solid var(--grid); }
thead th { color: var(--soft); font-weight: 600; vertical-align: bottom; white-space: normal;
  min-width: 70px; }
tbody th { position: sticky; left: 0; background: var(--card); font-weight: 600; }
td i { display: inline-block; width: 14px; height: 14px; margin-right: 6px; border-radius: 3px;
  vertical-align: -2px; border: 1px solid var(--grid); }
td, tbody th { vertical-align: top; }
.wrap { display: block; white-space: normal; min-width: 190px; }
.mark { color: var(--mark); font-weight: 600; }
.problems { border-left: 4px solid var(--mark); padding: 8px 14px; background: var(--card); }
summary { cursor: pointer; color: var(--link); margin: 10px 0; }
.note { color: var(--soft); font-size: 0.88rem; }
@media print { details > * { display: block; } .scroll { overflow: visible; } }
)";

}  // namespace zelctl
