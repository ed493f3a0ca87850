#pragma once

namespace dg {

/// What the page may load: nothing but its own styles.
inline constexpr const char* kPagePolicy =
    "default-src 'none'; style-src 'unsafe-inline'; base-uri 'none'; form-action 'none'";

/// The page's styles. Colours have at least 4.5 to 1 against their ground, light and dark. Tables
/// marked "wide" become a block a row where the page is narrow, each cell with its head in front.
inline constexpr const char* kPageStyle = R"css(
:root{color-scheme:light dark;--ground:#fff;--text:#1b1d21;--quiet:#595f69;--rule:#d5d9e0;
--band:#f3f5f8;--good:#17693a;--bad:#b3261e;--line:#0b5cad}
@media(prefers-color-scheme:dark){:root{--ground:#16181c;--text:#e9eaec;--quiet:#b0b5bd;
--rule:#3a3f47;--band:#20242a;--good:#6fd08c;--bad:#ff9a90;--line:#7ab8ff}}
*{box-sizing:border-box}
body{margin:0 auto;padding:16px;max-width:1180px;background:var(--ground);color:var(--text);
font:15px/1.4 system-ui,-apple-system,"Segoe UI",Roboto,Helvetica,Arial,sans-serif;
overflow-wrap:anywhere}
h1{font-size:1.6rem;line-height:1.2;margin:0}
h2{font-size:1.25rem;margin:1.6em 0 .5em}
h3{font-size:1.1rem;margin:1.4em 0 .4em}
h4,.kind{font-size:1rem;margin:1em 0 .2em}
p{margin:.3em 0}
.quiet,small{color:var(--quiet)}
.good{color:var(--good)}.bad{color:var(--bad)}
.trouble{border-left:4px solid var(--bad);background:var(--band);padding:8px 12px;margin:12px 0}
.trouble ul{margin:0;padding-left:18px}
table{border-collapse:collapse;width:100%;margin:.3em 0 .8em;font-variant-numeric:tabular-nums}
caption{text-align:left;font-weight:600;padding:.3em 0}
th,td{padding:4px 8px;border-bottom:1px solid var(--rule);text-align:left;vertical-align:top}
thead th{color:var(--quiet);font-weight:600;font-size:.87rem}
tbody th{font-weight:400;overflow-wrap:break-word}
.n{text-align:right;white-space:nowrap}
.n span,th small{white-space:normal}
small{display:block;font-size:.8rem}
td small{white-space:nowrap}
.cols{display:grid;grid-template-columns:repeat(auto-fit,minmax(min(100%,420px),1fr));gap:0 28px;align-items:start}
.blocks{columns:2 420px;column-gap:28px}
.blocks>*{break-inside:avoid;margin-top:0}
.lines{display:grid;grid-template-columns:repeat(auto-fill,minmax(150px,1fr));gap:14px 20px}
figure{margin:0;break-inside:avoid}
figcaption{font-size:.87rem}
svg{display:block;width:100%;height:44px;background:var(--band)}
polyline{fill:none;stroke:var(--line);stroke-width:1.6;vector-effect:non-scaling-stroke}
.bars{color:var(--line);font-size:1.1rem;white-space:pre;overflow:hidden}
footer{margin-top:2em;border-top:1px solid var(--rule);padding-top:8px}
a{color:var(--line)}
@media(max-width:639px){
body{padding:12px;font-size:14px}
th,td{padding:4px}
.wide thead{position:absolute;width:1px;height:1px;overflow:hidden;clip-path:inset(50%)}
.wide,.wide tbody,.wide tr,.wide th,.wide td{display:block}
.wide tr{border-bottom:1px solid var(--rule);padding:4px 0}
.wide th,.wide td{border:0;padding:1px 4px}
.wide tbody th{font-weight:600}
.wide td{display:flex;justify-content:space-between;gap:12px}
.wide td::before{content:attr(data-head);color:var(--quiet)}
.wide caption{display:block}
.wide td:empty{display:none}}
@page{size:letter;margin:11mm}
@media print{
:root{--ground:#fff;--text:#000;--quiet:#444;--rule:#bbb;--band:#f3f5f8;--good:#17693a;
--bad:#b3261e;--line:#0b5cad}
body{padding:0;max-width:none;font-size:8pt;line-height:1.2}
small{display:inline;margin-left:.5em;font-size:7pt}thead th,figcaption{font-size:7.5pt}
p,.kind+p{margin:.1em 0}
h1{font-size:14pt}h2{font-size:11pt;margin:.8em 0 .2em}h3{font-size:10pt;margin:.7em 0 .2em}
h4,.kind{font-size:9pt;margin:.5em 0 .1em}
th,td{padding:.5px 4px}
table{margin:.1em 0 .4em}
.cols,.blocks{display:block;columns:2;column-gap:8mm}
.cols>*{break-inside:avoid}
.lines{grid-template-columns:repeat(5,1fr);gap:4px 10px}
svg{height:18px}
figcaption small{display:block;margin:0}
h2,h3,h4{break-after:avoid}tr{break-inside:avoid}
footer{margin-top:.6em}}
)css";

}  // namespace dg
