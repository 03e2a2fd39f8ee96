// A hundred pages of some sites, opened from the disk: barriers, invalid HTML, tags that weigh too much,
// and how long it takes until a page can be used. check_pages.mjs SITE...; PAGES and SEED choose the pages.
import { readFileSync } from "node:fs";
import { basename, dirname, join } from "node:path";
import { pathToFileURL } from "node:url";
import { files_of } from "./check_site.mjs";
import { barriers_of, invalid_places_of, launch, markup_of, most_markup, wide } from "./page_faults.mjs";

const sites = process.argv.slice(2);
const wanted = Number(process.env.PAGES || 100);
let state = Number(process.env.SEED || 1);
const random = (end) => { // the same numbers on every machine
  state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
  return Math.floor((state / 2 ** 32) * end);
};

const kind_of = (name, text) => {
  const sort = text.match(/<div class="frame page-([\w-]*)"/)?.[1] ?? "none";
  return sort + (sort === "unit" ? ` ${text.match(/<span class="kind [^"]*">([^<]*)/)?.[1] ?? "text"}` : "");
};

const pages_of = (site) => files_of(site).filter((name) => name.endsWith(".htm")).sort().map((name) => {
  const text = readFileSync(join(site, name), "utf8");
  return { site, name, kind: kind_of(name, text), markup: markup_of(text) };
});

// Rare kinds of pages in front: one of each, then another of each, in a random order.
const chosen = (pages, count) => {
  const kinds = new Map();
  for (const page of pages) kinds.set(page.kind, [...(kinds.get(page.kind) ?? []), page]);
  const result = [];
  while (result.length < count && kinds.size)
    for (const [kind, left] of kinds) {
      if (result.length < count) result.push(...left.splice(random(left.length), 1));
      if (!left.length) kinds.delete(kind);
    }
  return result;
};

const browser = await launch();
const context = await browser.newContext({ viewport: wide });
const times = [];
const faults_of = async ({ site, name }) => {
  const page = await context.newPage();
  const faults = [];
  page.on("pageerror", (error) => faults.push(`${name}: ${error.message}`));
  await page.goto(pathToFileURL(join(site, name)).href);
  const where = page.url();
  times.push({ name, time: await page.evaluate(() =>
    performance.getEntriesByType("navigation")[0].domContentLoadedEventEnd) });
  // A page that leads on at once is no page to look at.
  if (where === page.url()) faults.push(...await barriers_of(page, name));
  await page.close();
  return [...faults, ...await invalid_places_of(site, name)];
};

let count = 0, looked_at = 0, heaviest = { markup: 0 };
const kinds = new Set();
for (const [number, site] of sites.entries()) {
  const pages = pages_of(site);
  const tell = (fault) => { ++count; console.log(`${basename(dirname(site))}: ${fault}`); };
  for (const page of pages) {
    if (page.markup > heaviest.markup) heaviest = page;
    if (page.markup > most_markup) tell(`${page.name}: ${page.markup} bytes of tags`);
  }
  for (const page of chosen(pages, Math.ceil((wanted - looked_at) / (sites.length - number)))) {
    ++looked_at;
    kinds.add(page.kind);
    (await faults_of(page)).forEach(tell);
  }
}
await browser.close();
times.sort((a, b) => a.time - b.time);
const [median, slowest] = [times[times.length >> 1], times.at(-1)];
console.log(`${looked_at} pages of ${kinds.size} kinds, ${count} findings; ` +
  `usable after ${median.time.toFixed(0)} ms (median), ${slowest.time.toFixed(0)} ms (${slowest.name}); ` +
  `the heaviest of all has ${heaviest.markup} bytes of tags (${heaviest.name})`);
process.exitCode = count || !looked_at ? 1 : 0;
