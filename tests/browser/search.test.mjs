// The search in a real browser: what is asked, and what is found first.
import assert from "node:assert/strict";
import { test } from "node:test";
import { address, example, odd, on_page } from "./browser.mjs";
import { axe } from "./page_faults.mjs";

const field = (page) => page.locator(".search input");
const ask = async (page, text) => {
  await field(page).fill("");
  await field(page).pressSequentially(text);
};
// The first row of the list as soon as it is the one of this name.
const first_hit = async (page, name) => {
  const row = page.locator(".hit:first-child").filter({ has: page.getByText(name, { exact: true }) });
  await row.waitFor();
  return row;
};
const violations = async (page) => (await page.evaluate(`${axe}; axe.run()`)).violations.map((v) => v.id);

// Question, name and address of the first hit.
const questions = [
  ["Buffer", "Buffer", "Buffer.htm"],
  ["uffe", "Buffer", "Buffer.htm"],
  ["Bufer", "Buffer", "Buffer.htm"],
  ["BMSB", "inner::basic_memory_stream_buf", "inner.basic_memory_stream_buf.htm"],
  ["bamestbu", "inner::basic_memory_stream_buf", "inner.basic_memory_stream_buf.htm", "BaMeStBu"],
  ["==", "Buffer::operator==", "Buffer.htm#operator-eq-eq"],
  ["operator<<", "inner::operator<<", "search.h.htm#inner.operator-lt-lt"],
  ["inner::open", "inner::open", "search.h.htm#inner.open"],
  ["inner.mak", "inner::make_one", "search.h.htm#inner.make_one"],
  ["fn:open", "inner::open", "search.h.htm#inner.open"],
  ["class:buf", "Buffer", "Buffer.htm"],
  ["enum:sky", "Sky", "search.h.htm#Sky"],
  ["-> Buffer", "inner::make_one", "search.h.htm#inner.make_one"],
  ["int, char*", "Buffer::open", "Buffer.htm#open"],
  ["open(int)", "Buffer::open", "Buffer.htm#open"],
  ["string, Integer -> Boolean", "Heavens.TMoon.Rise", "Heavens.TMoon.htm#Rise"],
  ["quicksilv", "Buffer", "Buffer.htm"],
  ["tail quicksilver", "Buffer", "Buffer.htm"],
  ["leaden", "Sky::leaden", /search\.h\.htm#b-leaden$/],
  ["gibbous", "Heavens.TPhase.phGibbous", /#b-phgibbous$/],
  ["TMoon.Ri", "Heavens.TMoon.Rise", "Heavens.TMoon.htm#Rise"],
  ["__proto__", "__proto__", "__proto___.htm"],
  ["constr", "constructor", "constructor.htm"],
];

test("each form of question finds what it means first", () =>
  on_page(address(odd, "index.htm"), {}, async (page) => {
    const faults = [];
    for (const [text, name, end, typed] of questions) {
      await ask(page, typed ?? text);
      const row = page.locator(".hit[href]:first-child").filter({ has: page.locator(".name", { hasText: name }) });
      await row.waitFor({ timeout: 4000 }).catch(() => {});
      const found = await row.count() ? (await row.getAttribute("href")).split("/").at(-1) : "nothing";
      if (!(end.test?.(found) ?? found === end)) faults.push(`${text}: ${found}`);
    }
    assert.deepEqual(faults, []);
  }));

test("search by keyboard alone, ranked, from a file", () =>
  on_page(address(example, "index.htm"), {}, async (page) => {
    await page.keyboard.press("/");
    await ask(page, "regi");
    const row = await first_hit(page, "Registry");
    assert.match(await row.innerText(), /^class/);
    assert.equal(await row.locator("mark").first().innerText(), "Regi");
    assert.deepEqual(await violations(page), []);
    await page.keyboard.press("ArrowDown");
    const active = await field(page).getAttribute("aria-activedescendant");
    assert.equal(await page.locator(`#${active}`).getAttribute("aria-selected"), "true");
    await page.keyboard.press("Escape");
    assert.equal(await field(page).getAttribute("aria-expanded"), "false");
    await page.keyboard.press("Control+k");
    await ask(page, "Registry enter");
    await page.keyboard.press("Enter"); // before the list is there
    await page.waitForURL(/Registry\.enter\.htm/);
    await page.keyboard.press("/");
    await ask(page, "nosuchword");
    await page.getByText("Nothing found.").waitFor();
  }));

test("more hits, their number, what was opened lately, and help", () =>
  on_page(address(odd, "index.htm"), {}, async (page) => {
    await ask(page, "f1");
    await first_hit(page, "f1");
    assert.match(await page.locator(".hits [role=status]").innerText(), /^\d+ hits/);
    assert.equal(await page.locator(".hit").count(), 40);
    await page.getByRole("button", { name: "Show more" }).click();
    await page.locator("#hit-79").waitFor();
    for (let i = 0; i < 80; ++i) await page.keyboard.press("ArrowDown"); // over the end
    await page.locator("#hit-119").waitFor();
    await ask(page, "Buffer");
    await first_hit(page, "Buffer");
    await page.keyboard.press("Enter");
    await page.waitForURL(/Buffer\.htm/);
    await page.keyboard.press("/");
    await first_hit(page, "Buffer");
    await page.getByText("Opened lately").waitFor();
    await page.keyboard.press("?");
    await page.getByText("with a typing error").waitFor();
    assert.deepEqual(await violations(page), []);
    await page.keyboard.press("Escape");
    assert.equal(await page.locator("dialog").isVisible(), false);
  }));
