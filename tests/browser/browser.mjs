// A browser for tests, and pages in it that are read from files, without a network. SITES names the
// folders of the sites.
import assert from "node:assert/strict";
import { join } from "node:path";
import { after, before } from "node:test";
import { pathToFileURL } from "node:url";
import { launch, wide } from "./page_faults.mjs";

export const sites = process.env.SITES.split(":");
export const [example, folder, odd] = sites;
export const address = (site, name) => pathToFileURL(join(site, name)).href;
let browser;

// Calls `work` with a fresh page of its own; a script error or a request to another machine is a fault.
export const on_page = async (url, options, work) => {
  const context = await browser.newContext({ viewport: wide, ...options });
  const faults = [];
  await context.route(/^(?!file:|data:|http:\/\/127\.0\.0\.1:)/, (route) => { faults.push(route.request().url()); route.abort(); });
  const page = await context.newPage();
  page.setDefaultTimeout(10000);
  page.on("pageerror", (error) => faults.push(error.message));
  await page.goto(url);
  await work(page);
  await context.close();
  assert.deepEqual(faults, []);
};

before(async () => { browser = await launch(); });
after(() => browser.close());
