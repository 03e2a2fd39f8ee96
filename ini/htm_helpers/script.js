// What pages do beyond text: theme, drawers, copying, and loading of the search. Loaded in the head, so that the theme
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
      for (const { target } of entries) {
        const cut = target.scrollWidth > target.clientWidth || target.scrollHeight > target.clientHeight;
        if (cut) target.tabIndex = 0;
        else target.removeAttribute("tabindex");
        // What takes the focus has to say which one it is.
        if (cut && target.matches("div, p")) {
          const [word, all] = target.matches("p") ? ["Formulas", "p:has(> math)"] : ["Table", "div.scroll"];
          target.role = "region";
          target.ariaLabel = `${word} ${$$(all).indexOf(target) + 1}`;
        }
      }
    });
    for (const block of $$("pre, .scroll, .tree-lines, p:has(> math)")) observer.observe(block);
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

  // ---- Only what has a text

  const start_filter = () => {
    const first = $("main .overview:not(details)");
    const rows = $$("main .rows > li");
    const bare = rows.filter((row) => row.classList.contains("bare"));
    if (!first || bare.length < 4 || bare.length === rows.length) return;
    const box = make("input", { type: "checkbox", checked: store.get("bare") === "hidden" });
    const hide = () => {
      root.dataset.bare = box.checked ? "hidden" : "";
      for (const list of $$("main .overview:not(details)"))
        list.hidden = box.checked && !$(".rows > li:not(.bare)", list);
    };
    box.addEventListener("change", () => {
      store.set("bare", root.dataset.bare === "hidden" ? "" : "hidden");
      hide();
    });
    first.before(make("label", { className: "filter" }, box,
      `Documented only (hides ${bare.length} of ${rows.length})`));
    hide();
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

  // Its scripts are loaded when someone goes to the field.
  const own = document.currentScript.src;
  globalThis.vlPage = { $, make, store };
  let searching;
  const load_search = () => {
    searching ??= new Promise((resolve) => {
      for (const name of ["search_find.js", "search.js"])
        document.head.append(make("script", { src: new URL(name, own).href, async: false, onload: () => {
          if (name === "search.js") resolve();
        } }));
    });
    return searching;
  };

  const start_search = () => {
    const field = $(".search input");
    if (!field) return;
    field.addEventListener("focus", load_search, { once: true });
    field.addEventListener("pointerenter", load_search, { once: true });
    document.addEventListener("keydown", (event) => {
      const typing = event.target.closest?.("input, textarea, select, dialog, [contenteditable]");
      const plain = !typing && !event.ctrlKey && !event.metaKey && !event.altKey;
      if ((plain && event.key === "/") || (event.key.toLowerCase() === "k" && (event.ctrlKey || event.metaKey))) {
        field.focus();
        field.select();
      } else if (plain && event.key === "?") load_search().then(() => vlSearch.help());
      else return;
      event.preventDefault();
    });
  };

  addEventListener("DOMContentLoaded", () => {
    toast = make("div", { className: "toast" });
    toast.setAttribute("role", "status");
    document.body.append(toast);
    start_theme();
    start_copying();
    start_scrolling();
    start_filter();
    addEventListener("resize", start_scrolling);
    start_drawers();
    start_places();
    start_search();
  });
})();
