// What pages do beyond text: theme, search, drawers, copying. Loaded in the head, so that the theme
// stands before anything is drawn; everything else waits for the page.
"use strict";

(() => {
  const root = document.documentElement;
  const $ = (selector, from = document) => from.querySelector(selector);
  const $$ = (selector, from = document) => [...from.querySelectorAll(selector)];
  const make = (tag, fields = {}, ...children) => {
    const element = Object.assign(document.createElement(tag), fields);
    element.append(...children);
    return element;
  };

  // Storage is refused in some browsers for pages from files; the choice then lasts for the page.
  const store = {
    get(key) { try { return localStorage.getItem(key); } catch { return null; } },
    set(key, value) { try { localStorage.setItem(key, value); } catch { /* not kept */ } },
  };

  // ---- Theme: automatic, light, dark

  const themes = ["auto", "light", "dark"];
  const theme = () => root.dataset.theme || "auto";
  const set_theme = (name) => {
    if (name === "light" || name === "dark") root.dataset.theme = name;
    else delete root.dataset.theme;
  };
  root.dataset.script = "";
  set_theme(store.get("theme"));
  addEventListener("storage", (event) => {
    if (event.key === "theme") set_theme(event.newValue);
  });

  const start_theme = () => {
    const button = $(".theme");
    if (!button) return;
    const name = () => { button.ariaLabel = button.title = `Colours: ${theme()}`; };
    name();
    button.addEventListener("click", () => {
      const next = themes[(themes.indexOf(theme()) + 1) % themes.length];
      set_theme(next);
      store.set("theme", next);
      name();
      say(button.title);
    });
  };

  // ---- Short messages, spoken too

  let toast, silence;
  const say = (text) => {
    toast.textContent = text;
    clearTimeout(silence);
    silence = setTimeout(() => { toast.textContent = ""; }, 1600);
  };

  // ---- Copying

  const copy = async (text, done) => {
    try {
      await navigator.clipboard.writeText(text);
    } catch { // no permission, or a page from a file
      const field = make("textarea", { value: text, readOnly: true, className: "hidden" });
      const focused = document.activeElement;
      document.body.append(field);
      field.select();
      const copied = document.execCommand("copy");
      field.remove();
      focused?.focus();
      if (!copied) return say("Copying is blocked by the browser");
    }
    say(done);
  };

  // What is wider than its place can be scrolled by keyboard, too.
  const start_scrolling = () => {
    const observer = new ResizeObserver((entries) => {
      for (const { target } of entries)
        if (target.scrollWidth > target.clientWidth) target.tabIndex = 0;
        else target.removeAttribute("tabindex");
    });
    for (const block of $$("pre, .scroll, .tree-lines")) observer.observe(block);
  };

  const start_copying = () => {
    for (const block of $$(".code")) {
      const button = make("button", { type: "button", className: "copy", textContent: "Copy" });
      button.addEventListener("click", () => {
        copy($("pre", block).textContent.replace(/\n$/, ""), "Copied");
      });
      block.append(button);
    }
    document.addEventListener("click", (event) => {
      const anchor = event.target.closest?.("a.anchor");
      if (anchor) copy(anchor.href, "Link copied");
    });
  };

  // ---- Drawers: the contents and "on this page" on narrow screens

  let drawer; // what closes the open one

  const open_drawer = (panel, button) => {
    drawer?.();
    const veil = make("div", { className: "veil" });
    const close_button = make("button", { type: "button", className: "icon close", ariaLabel: "Close" });
    // All but the panel is out of reach while it is open.
    const others = [$(".skip"), $(".top"), ...$(".frame").children].filter((e) => e && e !== panel);
    for (const other of others) other.inert = true;
    panel.classList.add("drawer");
    panel.prepend(close_button);
    const places = $(".top .places");
    if (places && panel.id === "contents") close_button.after(places);
    panel.before(veil);
    button.ariaExpanded = "true";
    close_button.focus();
    $("[aria-current]", panel)?.scrollIntoView({ block: "center" });

    const keys = (event) => {
      if (event.key === "Escape") return drawer();
      if (event.key !== "Tab") return;
      const stops = $$("a[href], button", panel);
      const edge = event.shiftKey ? stops[0] : stops.at(-1);
      if (document.activeElement !== edge && panel.contains(document.activeElement)) return;
      event.preventDefault();
      (event.shiftKey ? stops.at(-1) : stops[0]).focus();
    };
    const click = (event) => { if (event.target.closest("a")) drawer(); };
    drawer = () => {
      drawer = undefined;
      for (const other of others) other.inert = false;
      panel.classList.remove("drawer");
      close_button.remove();
      if (places) $(".brand").after(places);
      veil.remove();
      document.removeEventListener("keydown", keys, true);
      panel.removeEventListener("click", click);
      button.ariaExpanded = "false";
      button.focus({ preventScroll: true });
    };
    veil.addEventListener("click", drawer);
    close_button.addEventListener("click", drawer);
    panel.addEventListener("click", click);
    document.addEventListener("keydown", keys, true);
  };

  const start_drawers = () => {
    for (const button of $$("button[aria-controls][data-drawer]")) {
      const panel = document.getElementById(button.getAttribute("aria-controls"));
      if (!panel) {
        button.hidden = true;
        continue;
      }
      button.addEventListener("click", () => open_drawer(panel, button));
      matchMedia(button.dataset.drawer).addEventListener("change", () => drawer?.());
    }
  };

  // ---- Where the reader is

  const start_places = () => {
    // Moves the column alone; scrollIntoView would move the page, too.
    const nav = $(".frame > nav");
    const here = nav && $("[aria-current]", nav);
    if (here) nav.scrollTop = here.offsetTop - nav.clientHeight / 2;

    const links = new Map();
    for (const link of $$(".frame > aside a[href^='#']")) {
      const place = document.getElementById(decodeURIComponent(link.hash.slice(1)));
      if (place) links.set(place, link);
    }
    const places = [...links.keys()];
    if (!places.length) return;
    let current;
    const follow = () => {
      const top = 120;
      const found = places.findLast((place) => place.getBoundingClientRect().top < top) ?? places[0];
      if (found === current) return;
      links.get(current)?.removeAttribute("aria-current");
      current = found;
      const link = links.get(current);
      link.setAttribute("aria-current", "location");
      const aside = link.closest("aside");
      const gap = link.offsetTop - aside.scrollTop;
      if (gap < 40 || gap > aside.clientHeight - 60) aside.scrollTop = link.offsetTop - aside.clientHeight / 2;
    };
    let waiting = false;
    addEventListener("scroll", () => {
      if (waiting) return;
      waiting = true;
      requestAnimationFrame(() => { waiting = false; follow(); });
    }, { passive: true });
    follow();
  };

  // ---- Search

  const base = new URL("../_search/", document.currentScript.src);
  // The index is a set of scripts, since pages from files may load nothing else. Each calls one of
  // the functions of vlSearch with its part.
  const fetched = new Map(); // name of a part -> promise of its content
  const settle = {}; // name of a part -> what takes its content
  const arrived = (name, content) => { settle[name]?.(content); };
  globalThis.vlSearch = {
    start: (content) => arrived("index", content),
    words: (key, content) => arrived(`w-${file_of(key)}`, content),
    block: (number, content) => arrived(`b-${number}`, content),
  };

  const file_of = (key) => key.replace(/[^a-z0-9]/gu, (c) => `_${c.codePointAt(0).toString(16)}.`);

  const part = (name) => {
    if (!fetched.has(name)) {
      fetched.set(name, new Promise((resolve) => {
        settle[name] = resolve;
        const script = make("script", { src: new URL(`${name}.js`, base).href, async: true });
        script.onerror = () => { fetched.delete(name); resolve(null); };
        script.onload = () => script.remove();
        document.head.append(script);
      }));
    }
    return fetched.get(name);
  };

  const words_of = (text) => text.toLowerCase().match(/[\p{L}\p{N}_]+/gu) ?? [];

  // By the weight of a field in the index: what a whole word counts, and what its beginning does.
  // The sort of match outweighs everything else: a name itself, its beginning, a piece, the text.
  const whole = [0, 6, 14, 40, 55, 100];
  const beginning = [0, 3, 9, 30, 45, 70];

  // Which units have a word that begins with `query`, and how well: unit -> score. `common` if there
  // are more than the index lists.
  const units_with = async (query, index) => {
    const longest = index.shards.filter((key) => query.startsWith(key))
      .reduce((a, b) => (b.length > a.length ? b : a), "");
    const keys = index.shards.filter((key) => key === longest || key.startsWith(query));
    const scores = new Map();
    let common = false;
    for (const shard of await Promise.all(keys.map((key) => part(`w-${file_of(key)}`)))) {
      for (let at = 0; at < (shard?.length ?? 0); at += 2) { // word, its fields, word ...
        const [word, fields] = [shard[at], shard[at + 1]];
        if (!word.startsWith(query)) continue;
        const values = word === query ? whole : beginning;
        const nearness = 5 * query.length / word.length;
        for (const field of fields.split(";")) {
          if (field === "*") {
            common = true;
            continue;
          }
          const score = values[+field[0]] + nearness;
          let unit = 0;
          for (const step of field.slice(1).split(",")) {
            unit += parseInt(step, 36);
            if (!(scores.get(unit) >= score)) scores.set(unit, score);
          }
        }
      }
    }
    return { scores, common };
  };

  const shown_at_most = 40;
  const looked_at = 100; // of them some may be overloads

  // The best hits that have all words.
  const find = async (words) => {
    const index = await part("index");
    if (!index) return { hits: [], count: 0 };
    const lists = await Promise.all(
      words.filter((word) => word.length > 1).map((word) => units_with(word, index)));
    const narrow = lists.filter((list) => !list.common);
    const candidates = narrow.length
      ? narrow.reduce((a, b) => (b.scores.size < a.scores.size ? b : a)).scores.keys()
      : lists.flatMap((list) => [...list.scores.keys()]);
    const found = [];
    for (const unit of new Set(candidates)) {
      let sum = 0;
      for (const { scores, common } of lists) {
        const score = scores.get(unit) ?? (common ? 1 : 0);
        sum = score && sum >= 0 ? sum + score : -1;
      }
      if (sum > 0) found.push([unit, sum]);
    }
    found.sort((a, b) => b[1] - a[1] || a[0] - b[0]);
    const best = found.slice(0, looked_at);
    const hits = await Promise.all(best.map(async ([unit, score]) => {
      const block = await part(`b-${Math.floor(unit / index.block)}`);
      const entry = block?.[unit % index.block];
      if (!entry) return null;
      const [name, scope, kind, href, place, summary] = entry;
      return { name, scope, kind: index.kinds[kind], href, place, summary, score };
    }));
    const length = (hit) => hit.scope.length + hit.name.length;
    return { count: found.length, hits: joined(hits.filter((hit) => hit)
      .sort((a, b) => Math.round(b.score) - Math.round(a.score) || length(a) - length(b))) };
  };

  // Overloads as one hit, with the first summary that there is.
  const joined = (hits) => {
    const sets = new Map();
    for (const hit of hits) {
      const key = hit.kind?.[0] ? [hit.scope, hit.name, hit.kind[0]].join("\n") : hit.href;
      const first = sets.get(key);
      if (!first) {
        sets.set(key, { ...hit, same: 1 });
      } else {
        ++first.same;
        first.summary ||= hit.summary;
      }
    }
    return [...sets.values()].slice(0, shown_at_most);
  };

  // The name with what was found in it marked, its scope paler.
  const marked_name = (hit, words) => {
    const full = hit.scope ? `${hit.scope}::${hit.name}` : hit.name;
    const low = full.toLowerCase();
    const marks = new Uint8Array(full.length);
    for (const word of words) {
      const at = low.lastIndexOf(word);
      if (at >= 0) marks.fill(1, at, at + word.length);
    }
    const element = make("span", { className: "name" });
    const cut = full.length - hit.name.length;
    for (let i = 0; i < full.length;) {
      let end = i + 1;
      while (end < full.length && marks[end] === marks[i] && end !== cut) ++end;
      const part = marks[i] ? make("mark", {}, full.slice(i, end)) : full.slice(i, end);
      element.append(i < cut ? make("span", { className: "scope" }, part) : part);
      i = end;
    }
    if (hit.same > 1) element.append(" ", make("small", { className: "same", textContent: `×${hit.same}` }));
    return element;
  };

  const hit_row = (hit, words, index) => {
    const [kind, kind_class] = hit.kind ?? [];
    const row = make("a", { className: "hit", id: `hit-${index}`, href: new URL(`../${hit.href}`, base).href,
      tabIndex: -1 });
    row.setAttribute("role", "option");
    row.ariaSelected = "false";
    row.append(
      make("span", {}, kind ? make("span", { className: `kind ${kind_class}`, textContent: kind }) : ""),
      marked_name(hit, words),
      make("span", { className: "place", textContent: hit.place.replace(/^.*[\\/]/, ""), title: hit.place }));
    if (hit.summary) row.append(make("span", { className: "summary", textContent: hit.summary }));
    return row;
  };

  const start_search = () => {
    const field = $(".search input");
    if (!field) return;
    const list = make("div", { id: "hits", hidden: true });
    list.setAttribute("role", "listbox");
    list.ariaLabel = "Hits";
    field.setAttribute("aria-controls", "hits");
    const note = make("p", { className: "note" });
    const box = make("div", { className: "hits", hidden: true }, list, note);
    field.after(box);
    let asked = 0, chosen = -1, answer = Promise.resolve();

    const choose = (index) => {
      const rows = list.children;
      if (rows[chosen]) rows[chosen].ariaSelected = "false";
      chosen = rows.length ? (index + rows.length) % rows.length : -1;
      const row = rows[chosen];
      if (!row) return field.removeAttribute("aria-activedescendant");
      row.ariaSelected = "true";
      row.scrollIntoView({ block: "nearest" });
      field.setAttribute("aria-activedescendant", row.id);
    };
    const show = (open) => {
      box.hidden = !open;
      list.hidden = !list.children.length;
      field.ariaExpanded = String(open && !list.hidden);
      if (!open) choose(-1);
    };
    const ask = async () => {
      const words = words_of(field.value);
      const number = ++asked;
      if (!words.some((word) => word.length > 1)) {
        list.replaceChildren();
        return show(false);
      }
      const { hits, count } = await find(words);
      if (number !== asked) return; // a later question was faster
      list.replaceChildren(...hits.map((hit, index) => hit_row(hit, words, index)));
      note.textContent = count === 0 ? "Nothing found."
        : count > hits.length ? `${count} found; the best ${hits.length} are shown.` : "";
      note.hidden = !note.textContent;
      chosen = -1;
      show(true);
      choose(0);
    };

    field.addEventListener("input", () => { answer = ask(); });
    field.addEventListener("focus", () => { if (field.value) answer = ask(); });
    field.addEventListener("keydown", (event) => {
      const rows = list.children.length;
      if (event.key === "ArrowDown" && rows) choose(chosen + 1);
      else if (event.key === "ArrowUp" && rows) choose(chosen - 1);
      else if (event.key === "Enter") answer.then(() => { list.children[chosen]?.click(); });
      else if (event.key === "Escape") {
        if (box.hidden) field.blur();
        ++asked;
        show(false);
      } else return;
      event.preventDefault();
    });
    box.addEventListener("mousedown", (event) => event.preventDefault()); // the field keeps the focus
    box.addEventListener("click", (event) => { if (event.target.closest("a")) show(false); });
    field.addEventListener("blur", () => { ++asked; show(false); });
    document.addEventListener("keydown", (event) => {
      const typing = event.target.closest?.("input, textarea, select, [contenteditable]");
      const wanted = (event.key === "/" && !typing && !event.ctrlKey && !event.metaKey && !event.altKey)
        || (event.key.toLowerCase() === "k" && (event.ctrlKey || event.metaKey));
      if (!wanted) return;
      event.preventDefault();
      field.focus();
      field.select();
    });
  };

  addEventListener("DOMContentLoaded", () => {
    toast = make("div", { className: "toast" });
    toast.setAttribute("role", "status");
    document.body.append(toast);
    start_theme();
    start_copying();
    start_scrolling();
    addEventListener("resize", start_scrolling);
    start_drawers();
    start_places();
    start_search();
  });
})();
