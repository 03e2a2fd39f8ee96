// What is wrong with a page: barriers by axe in light, dark and on a phone, and HTML that isn't valid.
// And what it costs: the bytes of its tags.
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { join } from "node:path";
import { HtmlValidate } from "html-validate";
import { chromium } from "playwright-core";

export const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
export const wide = { width: 1440, height: 900 };
export const phone = { width: 390, height: 844 };
export const most_markup = 102400;

export const launch = () => chromium.launch({
  executablePath: process.env.CHROMIUM || "/usr/bin/chromium",
  args: ["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
    "--disable-background-networking", "--disable-component-update", "--disable-sync"],
});

// The rules that are off at first, too; those of the highest level contradict a calm look. Whether a table in
// a comment has heads is up to its author.
const all_rules = {
  runOnly: ["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "wcag22aa", "best-practice", "experimental"],
  rules: { "td-has-header": { enabled: false } },
};

// The page is open, and `axe` was run in it.
const faults_of_view = async (page, viewport, colorScheme) => {
  await page.setViewportSize(viewport);
  await page.emulateMedia({ colorScheme, reducedMotion: "reduce" });
  // Blocks that can be scrolled at the new size take the focus from the next frame on.
  await page.evaluate(() => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))));
  // Nothing but colours differs in the dark.
  const rules = colorScheme === "dark" ? { runOnly: "color-contrast" } : all_rules;
  const { violations } = await page.evaluate((options) => window.axe.run(options), rules);
  const faults = violations.map((v) => `${v.id} ${v.nodes[0].html.slice(0, 200)}`);
  const over = await page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
  return over > 0 ? [...faults, `${over} pixels too wide`] : faults;
};

export const barriers_of = async (page, name) => {
  const faults = [];
  await page.evaluate(axe);
  for (const viewport of [wide, phone])
    for (const colours of ["light", "dark"])
      for (const fault of await faults_of_view(page, viewport, colours))
        faults.push(`${name} ${colours} ${viewport.width}: ${fault}`);
  return faults;
};

const validator = new HtmlValidate({ extends: ["html-validate:standard", "html-validate:a11y"],
  rules: { "long-title": "off", "no-inline-style": "off" } });

export const invalid_places_of = async (site, name) => {
  const { results } = await validator.validateFile(join(site, name));
  return results.flatMap(({ messages }) => messages.map((m) =>
    `${name}:${m.line}:${m.column} ${m.ruleId} ${m.message}`));
};

export const markup_of = (text) =>
  (text.match(/<[^>]*>/g) ?? []).reduce((sum, tag) => sum + Buffer.byteLength(tag), 0);
