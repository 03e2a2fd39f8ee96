// The pages in a real browser, read from files and without a network. SITES names the folders.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { describe, test } from "node:test";
import { address, folder, odd, on_page, sites } from "./browser.mjs";
import { check_site, files_of } from "./check_site.mjs";
import { axe, barriers_of, invalid_places_of, phone, wide } from "./page_faults.mjs";

const pages_of = (site) => files_of(site).filter((name) => name.endsWith(".htm"));
const page_of_kind = (site, kind) => pages_of(site).find((name) =>
  readFileSync(join(site, name), "utf8").includes(`<span class="kind ${kind}">${kind}</span><h1`));
// One page of each sort, and the heaviest of all.
const samples_of = (site) => {
  const pages = pages_of(site);
  const size = (name) => readFileSync(join(site, name)).length;
  const heaviest = pages.reduce((a, b) => (size(b) > size(a) ? b : a));
  const longest_name = pages.reduce((a, b) => (b.length > a.length ? b : a));
  return [...new Set(["index.htm", "contents.htm", "idx.htm", heaviest, longest_name, page_of_kind(site, "class"),
    page_of_kind(site, "function"), pages.find((name) => name.startsWith("_source"))].filter(Boolean))];
};

for (const site of sites) {
  describe(site.split("/").at(-2), () => {
    test("every link leads somewhere, no file is too heavy", async () => {
      const { pages, links, faults } = await check_site(site);
      assert.deepEqual(faults.slice(0, 20), []);
      assert.ok(pages > 5 && links > 100);
    });

    test("valid HTML", async () => {
      const faults = [];
      for (const name of new Set([...samples_of(site), ...pages_of(site).slice(0, 60)]))
        faults.push(...await invalid_places_of(site, name));
      assert.deepEqual(faults.slice(0, 20), []);
    });

    test("no barrier: light and dark, wide and phone, nothing cut off", async () => {
      const faults = [];
      for (const name of samples_of(site))
        await on_page(address(site, name), {}, async (page) => { faults.push(...await barriers_of(page, name)); });
      assert.deepEqual(faults, []);
    });
  });
}

test("sources have all the room that their outline leaves", () =>
  on_page(address(odd, pages_of(odd).find((name) => name.endsWith("search.h.htm") && name.startsWith("_source"))), {}, async (page) => {
    for (const width of [1440, 1100, 390]) {
      await page.setViewportSize({ width, height: 800 });
      const room = await page.evaluate(() => document.querySelector("pre").getBoundingClientRect().width);
      assert.ok(room > width * 0.7, `${room} of ${width}`);
    }
    assert.ok(await page.locator("aside a[href^='#L']").count() > 3);
  }));

// A finger meets the right one if there are 24 pixels from each to the next.
test("line numbers of sources are far enough from each other", () =>
  on_page(address(odd, pages_of(odd).find((name) => name.endsWith("many.h-2.htm"))), {}, async (page) => {
    const tops = await page.locator("pre code > a[id]").evaluateAll((links) =>
      links.slice(0, 50).map((link) => link.getBoundingClientRect().top));
    assert.equal(tops.length, 50);
    for (let at = 1; at < tops.length; ++at) assert.ok(tops[at] - tops[at - 1] >= 24);
  }));

test("the theme follows the system until it is chosen, and is kept", () =>
  on_page(address(sites[0], "index.htm"), { colorScheme: "dark" }, async (page) => {
    const paper = () => page.evaluate(() => getComputedStyle(document.documentElement).backgroundColor);
    const dark = await paper();
    const button = page.locator(".theme");
    await button.click(); // light
    const light = await paper();
    assert.notEqual(light, dark);
    await page.reload();
    assert.equal(await paper(), light);
    await page.emulateMedia({ colorScheme: "light" });
    await button.click(); // dark
    assert.equal(await paper(), dark);
    await button.click(); // automatic
    assert.equal(await paper(), light);
  }));

test("drawers hold the focus and close on Escape", () =>
  on_page(address(folder, page_of_kind(folder, "class")), { viewport: phone }, async (page) => {
    const button = page.locator(".menu");
    assert.equal(await page.locator("#contents").isVisible(), false);
    await button.click();
    for (let i = 0; i < 3; ++i) {
      await page.keyboard.press("Shift+Tab");
      assert.ok(await page.evaluate(() => document.querySelector("#contents").contains(document.activeElement)));
    }
    await page.evaluate(axe);
    assert.deepEqual((await page.evaluate(() => axe.run())).violations.map((v) => v.id), []);
    await page.keyboard.press("Escape");
    assert.equal(await page.locator("#contents").isVisible(), false);
    assert.ok(await button.evaluate((element) => element === document.activeElement));
  }));

test("text is there without scripts, and nothing moves while a page loads", async () => {
  const class_page = address(folder, page_of_kind(folder, "class"));
  await on_page(class_page, { javaScriptEnabled: false }, async (page) => {
    assert.equal(await page.locator(".search").isVisible(), false);
    assert.ok((await page.locator("main").innerText()).length > 100);
    assert.ok(await page.locator("#contents a").count() > 3);
  });
  for (const viewport of [wide, phone])
    await on_page(class_page, { viewport }, async (page) => {
      const shift = await page.evaluate(() => new Promise((resolve) => {
        let sum = 0;
        new PerformanceObserver((list) => { for (const e of list.getEntries()) sum += e.value; })
          .observe({ type: "layout-shift", buffered: true });
        setTimeout(() => resolve(sum), 300);
      }));
      assert.ok(shift < 0.005, `shift ${shift}`);
    });
});

test("code is copied as it stands", () =>
  on_page(address(folder, page_of_kind(folder, "class")), { permissions: ["clipboard-read", "clipboard-write"] }, async (page) => {
    const block = page.locator(".code").first();
    await block.hover();
    await block.locator(".copy").click();
    await page.getByText("Copied").waitFor();
    assert.equal(await page.evaluate(() => navigator.clipboard.readText()),
      (await block.locator("pre").innerText()).trimEnd());
  }));
