// Sizes of a site's index, and how fast its search answers: search.mjs FOLDER.
import { readdirSync, statSync } from "node:fs";
import { join } from "node:path";
import { pathToFileURL } from "node:url";
import { chromium } from "playwright-core";

const site = process.argv[2];
const sizes = {};
for (const name of readdirSync(join(site, "_search")))
  sizes[name[0]] = (sizes[name[0]] ?? 0) + statSync(join(site, "_search", name)).size;
const browser = await chromium.launch({ executablePath: process.env.CHROMIUM || "/usr/bin/chromium",
  args: ["--no-sandbox", "--disable-gpu"] });
const page = await browser.newPage();
await page.goto(pathToFileURL(join(site, "index.htm")).href);
const { names, loading } = await page.evaluate(async () => {
  const begin = performance.now();
  document.querySelector(".search input").focus();
  while (!globalThis.vlSearch?.find) await new Promise((done) => setTimeout(done, 1));
  return { names: (await vlSearch.prepare()).entries, loading: performance.now() - begin };
});
const bytes = Object.values(sizes).reduce((a, b) => a + b);
console.log(`${names} names, ${(bytes / names).toFixed(1)} bytes a name:`,
  Object.entries({ n: "names", s: "types", b: "beside", w: "texts", i: "start" })
    .map(([sort, word]) => `${word} ${(sizes[sort] / names).toFixed(1)}`).join(", "));
console.log(`loaded in ${loading.toFixed(0)} ms`);
for (const question of ["basic_buffer_7", "ffer", "readP", "BB7", "basik", "operator==", "class:last", "-> big_open_7",
  "int, char*", "memory colour", "e"]) {
  const [times, count] = await page.evaluate(async (text) => {
    const times = [];
    let count = 0;
    for (let turn = 0; turn < 5; ++turn) {
      const begin = performance.now();
      count = (await vlSearch.find(text, 40, false)).count;
      times.push(performance.now() - begin);
    }
    return [times, count];
  }, question);
  const rest = times.slice(1).sort((a, b) => a - b);
  console.log(`${question.padEnd(16)} first ${times[0].toFixed(0)} ms, again ${rest[1].toFixed(0)} ms, ${count} hits`);
}
await browser.close();
