// A page that is open while its source changes. PROGRAM is the program.
import assert from "node:assert/strict";
import { spawn } from "node:child_process";
import { mkdirSync, mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { once } from "node:events";
import { test } from "node:test";
import { on_page } from "./browser.mjs";

const source = (words) => "/// A long class.\nclass Long {\npublic:\n" +
  Array.from({ length: 60 }, (_, i) => `  /// ${words} ${i}.\n  void member_${i}(int a);\n`).join("") + "};\n";

test("shows a changed comment at the same place", async () => {
  const folder = mkdtempSync(join(tmpdir(), "vlwatch-"));
  const write = (words) => writeFileSync(join(folder, "src", "long.h"), source(words));
  mkdirSync(join(folder, "src"));
  write("First words");
  const watch = spawn(process.env.PROGRAM, ["quick", "src", "-q", "--watch"], { cwd: folder });
  try {
    let told = "";
    watch.stdout.on("data", (text) => { told += text; });
    while (!/Pages: .*\n/.test(told)) await once(watch.stdout, "data");
    const address = told.match(/http:\S+/)[0];
    await on_page(`${address}Long.htm`, {}, async (page) => {
      await page.getByText("First words 40.").first().waitFor();
      await page.waitForTimeout(500); // the page is asked to wait for events
      await page.evaluate("scrollTo({top: 900, behavior: 'instant'})");
      write("Second words");
      await page.getByText("Second words 40.").first().waitFor();
      await page.waitForFunction("Math.abs(scrollY - 900) < 2");
    });
  } finally {
    const ended = once(watch, "exit");
    watch.kill("SIGINT");
    assert.equal((await ended)[0], 130);
    rmSync(folder, { recursive: true });
  }
});
