// Checks a whole site without a browser: every link and anchor leads somewhere, nothing is asked of
// another host, no file is too heavy.
import { readFileSync, readdirSync } from "node:fs";
import { dirname, extname, join, normalize, relative } from "node:path";
import { createContext, runInContext } from "node:vm";

const attribute = /<(\w+)\b[^>]*?>/g;
const named = /\s(id|href|src|aria-controls|aria-labelledby)="([^"]*)"/g;
const entities = { amp: "&", lt: "<", gt: ">", quot: '"', "#39": "'" };
const plain = (text) => text.replace(/&(amp|lt|gt|quot|#39);/g, (all, name) => entities[name]);

export const files_of = (root) => readdirSync(root, { recursive: true, withFileTypes: true })
  .filter((entry) => entry.isFile())
  .map((entry) => relative(root, join(entry.path ?? entry.parentPath, entry.name)));

const read_page = (text) => {
  const page = { ids: new Map(), links: [], loads: [] };
  for (const [tag, element] of text.matchAll(attribute)) {
    for (const [, name, value] of tag.matchAll(named)) {
      if (name === "id") page.ids.set(value, (page.ids.get(value) ?? 0) + 1);
      else if (name === "src" || element === "link") page.loads.push(plain(value));
      else if (name === "href") page.links.push(plain(value));
      else page.links.push(`#${value}`);
    }
  }
  return page;
};

const fault_of_link = (link, from, pages, files) => {
  if (/^(https?|mailto|vscode|[a-z]+):/.test(link)) return null;
  const [path, fragment] = link.split("#");
  const target = path ? normalize(join(dirname(from), decodeURIComponent(path))) : from;
  if (!files.has(target)) return "no such file";
  if (!fragment || pages.get(target)?.ids.has(decodeURIComponent(fragment))) return null;
  return "no such anchor";
};

// What the search leads to, by its own script: addresses, and words that a file of words begins or ends with,
// but that aren't found.
const search_of = async (root) => {
  const code = readFileSync(join(root, "_files/search_find.js"), "utf8");
  const base = "file:///site/";
  const context = createContext({ URL, document: { currentScript: { src: `${base}_files/search_find.js` },
    createElement: () => ({ remove() {} }), head: { append: (script) => {
      runInContext(readFileSync(join(root, script.src.slice(base.length)), "utf8"), context);
      script.onload?.();
    } } } });
  runInContext(code, context);
  const { vlSearch } = context;
  const index = await vlSearch.prepare();
  const links = [];
  for (const part of index.names)
    for (let line = 0; line < part.count; ++line) {
      const details = await vlSearch.details(vlSearch.hit_at(part, line));
      links.push(details ? details.href.slice(base.length) : `entry-${part.first + line}`);
    }
  const lost = [];
  for (const number of index.shards.keys()) {
    const words = readFileSync(join(root, `_search/w-${number}.js`), "utf8").match(/(?<=^")[^"]+/gm);
    for (const word of [words[0], words.at(-1)])
      if (!(await vlSearch.find(word, 1, true)).count) lost.push(word);
  }
  return { links, lost };
};

export const check_site = async (root) => {
  const names = files_of(root);
  const files = new Set(names);
  const faults = [];
  const pages = new Map();
  const size = (name) => (files.has(name) ? readFileSync(join(root, name)).length : Infinity);
  const shared = size("_files/style.css") + size("_files/script.js") + size("_files/icon.svg");
  if (shared > 49152) faults.push(`what all pages load is too heavy: ${shared} bytes`);
  if (new Set(names.map((name) => name.toLowerCase())).size !== names.length)
    faults.push("files differ in case alone");
  for (const name of names) {
    const text = readFileSync(join(root, name), "utf8");
    if (text.includes("\ufffd") && extname(name) === ".htm") faults.push(`${name}: broken UTF-8`);
    if (name.startsWith("_search") && text.length > 102400) faults.push(`${name}: too heavy`);
    if (extname(name) !== ".htm") continue;
    const frame = text.replace(/<main[^]*<\/main>/, "");
    if (frame.length + shared > 102400) faults.push(`${name}: ${frame.length + shared} bytes beside its text`);
    const markup = text.length - text.replace(/<[^>]*>/g, "").length;
    if (name.startsWith("_source") && markup > 102400) faults.push(`${name}: ${markup} bytes beside its text`);
    pages.set(name, read_page(text));
  }
  const search = await search_of(root);
  faults.push(...search.lost.map((word) => `the search doesn't find ${word}`));
  pages.set("the search", { ids: new Map(), loads: [], links: search.links });
  let links = 0;
  for (const [name, page] of pages) {
    for (const [id, count] of page.ids) if (count > 1) faults.push(`${name}: anchor ${id} stands ${count} times`);
    for (const load of page.loads) if (/^([a-z]+:|\/\/)/.test(load)) faults.push(`${name}: loads ${load}`);
    for (const link of [...page.links, ...page.loads]) {
      ++links;
      const fault = fault_of_link(link, name, pages, files);
      if (fault) faults.push(`${name}: ${link}: ${fault}`);
    }
  }
  return { pages: pages.size, links, faults };
};

if (process.argv[1] === new URL(import.meta.url).pathname) {
  const { pages, links, faults } = await check_site(process.argv[2]);
  console.log([...faults.slice(0, 50), `${pages} pages, ${links} links, ${faults.length} faults`].join("\n"));
  process.exitCode = faults.length ? 1 : 0;
}
