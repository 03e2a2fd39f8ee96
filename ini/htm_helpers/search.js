// The search field and the list of what search_find.js finds. Both are loaded when someone goes to
// the field; vlPage is what script.js shares.
"use strict";

(() => {
  const { $, make, store } = vlPage;
  const field = $(".search input");
  const page_of_hits = 40;

  const list = make("div", { id: "hits", hidden: true });
  list.setAttribute("role", "listbox");
  list.ariaLabel = "Hits";
  const more = make("button", { type: "button", className: "more", textContent: "Show more", hidden: true });
  const note = make("p", { className: "note" });
  note.setAttribute("role", "status");
  const box = make("div", { className: "hits", hidden: true }, list, more, note);
  field.setAttribute("aria-controls", "hits");
  field.after(box);

  // ---- Rows

  // The name with what was found in it marked, its scope paler.
  const marked_name = (hit, words) => {
    const full = `${hit.scope}${hit.name}`, cut = hit.scope.length;
    const low = full.toLowerCase();
    const marks = new Uint8Array(full.length);
    for (const word of words) {
      const at = low.lastIndexOf(word);
      if (at >= 0) marks.fill(1, at, at + word.length);
    }
    const element = make("span", { className: "name" });
    for (let i = 0; i < full.length;) {
      let end = i + 1;
      while (end < full.length && marks[end] === marks[i] && end !== cut) ++end;
      const part = marks[i] ? make("mark", {}, full.slice(i, end)) : full.slice(i, end);
      element.append(i < cut ? make("span", { className: "scope" }, part) : part);
      i = end;
    }
    const same = hit.entries?.length ?? 1;
    if (same > 1) element.append(" ", make("small", { className: "same", textContent: `×${same}` }));
    return element;
  };

  // Address, place and summary come later, from other files.
  const fill_row = (row, hit, details) => {
    if (!details) return;
    row.href = details.href;
    row.addEventListener("click", () => remember({ ...hit, entries: undefined, href: details.href }));
    const place = $(".place", row);
    place.textContent = details.place.replace(/^.*[\\/]/, "");
    place.title = details.place;
    if (details.summary) row.append(make("span", { className: "summary", textContent: details.summary }));
  };

  const hit_row = (hit, words, index) => {
    const [kind, kind_class] = hit.kind ?? [];
    const row = make("a", { className: "hit", id: `hit-${index}`, tabIndex: -1 });
    row.setAttribute("role", "option");
    row.ariaSelected = "false";
    row.append(
      make("span", {}, kind ? make("span", { className: `kind ${kind_class}`, textContent: kind }) : ""),
      marked_name(hit, words), make("span", { className: "place" }));
    return row;
  };

  // ---- What was opened lately

  const recent_key = `recent ${vlSearch.site.href}`;
  const recent = () => {
    try {
      const hits = JSON.parse(store.get(recent_key) ?? "[]");
      return hits.filter((hit) => hit.href.startsWith(vlSearch.site.href) && typeof hit.name === "string"
        && typeof hit.scope === "string").slice(0, 8);
    } catch { return []; }
  };
  const remember = (hit) => {
    const others = recent().filter((one) => one.href !== hit.href);
    store.set(recent_key, JSON.stringify([hit, ...others].slice(0, 8)));
  };

  // ---- The list

  let asked = 0, chosen = -1, shown = [], answer = Promise.resolve();
  let filled = []; // promises of the rows' addresses

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
  const key_of = (hits) => hits.map((hit) => hit.entries[0]).join();

  const fill = (hits, words, keep) => {
    const here = keep ? shown[chosen]?.entries[0] : undefined;
    shown = hits;
    const rows = hits.map((hit, index) => hit_row(hit, words, index));
    list.replaceChildren(...rows);
    filled = hits.map(async (hit, index) => fill_row(rows[index], hit, await vlSearch.details(hit)));
    chosen = -1;
    return Math.max(0, hits.findIndex((hit) => hit.entries[0] === here));
  };

  const tell = ({ count, hits }) => {
    const number = count.toLocaleString("en");
    note.textContent = count === 0 ? "Nothing found." : count === 1 ? "1 hit" : `${number} hits`;
    if (count > 0 && hits.length) note.append(make("span", { className: "keys-hint", textContent: "Keys: ?" }));
  };

  // By names first, which are there at once; then with what is found in texts.
  const ask = async (most = page_of_hits, keep = false) => {
    const number = ++asked;
    const text = field.value;
    if (!text.trim()) return show_recent();
    let last = null;
    for (const with_texts of [false, true]) {
      const found = await vlSearch.find(text, most, with_texts);
      if (number !== asked) return; // a later question was faster
      if (!found) {
        list.replaceChildren();
        return show(false);
      }
      if (!with_texts && !found.count) continue; // texts may have it
      if (last === null || last !== key_of(found.hits)) {
        const place = fill(found.hits, found.words, keep || last !== null);
        show(true);
        choose(place);
      }
      last = key_of(found.hits);
      more.hidden = !found.more;
      tell(found);
      show(true);
    }
  };
  const ask_for_more = () => { answer = ask(shown.length + page_of_hits, true); };

  const show_recent = () => {
    const hits = recent();
    shown = [];
    const rows = hits.map((hit, index) => {
      const row = hit_row(hit, [], index);
      row.href = hit.href;
      return row;
    });
    list.replaceChildren(...rows);
    filled = [];
    chosen = -1;
    more.hidden = true;
    note.textContent = hits.length ? "Opened lately" : "";
    show(hits.length > 0);
  };

  // ---- Help

  const forms = [
    ["Buffer, buf, ffer", "a name, its beginning, a part of it"],
    ["BMSB, BaMeSt", "the first letters of its words"],
    ["Bufer", "with a typing error"],
    ["Box::add, Box.add, Box::", "within a scope"],
    ["==, operator<<", "an operator"],
    ["fn:open, class:, enum:, value:, macro:", "of one kind"],
    ["-> QString", "what gives such a result"],
    ["int, char*  or  open(int)", "what takes such parameters"],
    ["buffer size", "all words, in names or texts"],
  ];
  const keys = [["/ or Ctrl K", "to the search field"], ["↑ ↓", "through the hits"], ["Enter", "opens the hit"],
    ["Esc", "closes the list"], ["?", "shows this"]];
  const rows_of = (rows) => make("dl", {}, ...rows.flatMap(([term, text]) =>
    [make("dt", {}, make("kbd", { textContent: term })), make("dd", { textContent: text })]));

  let help;
  vlSearch.help = () => {
    if (!help) {
      const close = make("button", { type: "button", className: "icon close", ariaLabel: "Close" });
      help = make("dialog", { className: "keys" }, close, make("h2", { textContent: "Search" }), rows_of(forms),
        make("h2", { textContent: "Keys" }), rows_of(keys));
      help.ariaLabel = "Search and keys";
      close.addEventListener("click", () => help.close());
      help.addEventListener("click", (event) => { if (event.target === help) help.close(); });
      document.body.append(help);
    }
    if (!help.open) help.showModal();
  };

  // ---- The field

  const step = (by) => {
    const at_end = by > 0 && chosen === list.children.length - 1;
    if (at_end && !more.hidden) return ask_for_more();
    choose(chosen < 0 && by < 0 ? list.children.length - 1 : chosen + by);
  };
  const open_chosen = async () => {
    await answer;
    await filled[chosen];
    const row = list.children[chosen];
    if (row?.href) row.click();
  };
  const close_list = () => {
    ++asked;
    show(false);
  };

  field.addEventListener("input", () => { answer = ask(); });
  field.addEventListener("focus", () => { answer = ask(); });
  field.addEventListener("keydown", (event) => {
    if (event.key === "ArrowDown" && list.children.length) step(1);
    else if (event.key === "ArrowUp" && list.children.length) step(-1);
    else if (event.key === "Enter") open_chosen();
    else if (event.key === "?" && !field.value) vlSearch.help();
    else if (event.key === "Escape") {
      if (box.hidden) field.blur();
      close_list();
    } else return;
    event.preventDefault();
  });
  more.addEventListener("click", () => {
    ask_for_more();
    field.focus();
  });
  box.addEventListener("mousedown", (event) => event.preventDefault()); // the field keeps the focus
  box.addEventListener("click", (event) => { if (event.target.closest("a")) show(false); });
  $(".search").addEventListener("focusout", (event) => {
    if (!$(".search").contains(event.relatedTarget)) close_list();
  });

  vlSearch.prepare();
  if (document.activeElement === field) answer = ask();
})();
