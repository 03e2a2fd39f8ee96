// What the search finds: names by their words, pieces, humps and with a typing error, operators,
// scopes, kinds, types of routines, and words of texts. The data are a set of scripts in _search/,
// since pages from files may load nothing else; each calls one of the functions of vlSearch with its
// part.
"use strict";

(() => {
  const base = new URL("../_search/", document.currentScript.src);
  const site = new URL("../", base);

  // ---- The data

  const fetched = new Map(); // name of a file -> promise of its content
  const settle = {}; // name of a file -> what takes its content
  const file_of = (key) => key.replace(/[^a-z0-9]/gu, (c) => `_${c.codePointAt(0).toString(16)}.`);
  const load = (name) => {
    if (!fetched.has(name)) {
      fetched.set(name, new Promise((resolve) => {
        settle[name] = resolve;
        const script = document.createElement("script");
        script.src = new URL(`${name}.js`, base).href;
        script.onerror = () => { fetched.delete(name); resolve(null); };
        script.onload = () => script.remove();
        document.head.append(script);
      }));
    }
    return fetched.get(name);
  };

  // "3.a,1b" is the number 10 three times, then 47.
  const spread_runs = (text, into) => {
    let at = 0;
    for (const run of text.split(",")) {
      const point = run.indexOf(".");
      const count = point < 0 ? 1 : parseInt(run.slice(0, point), 36);
      into.fill(parseInt(run.slice(point + 1), 36), at, at + count);
      at += count;
    }
    return into;
  };

  const lower = (text) => {
    const low = text.toLowerCase();
    return low.length === text.length ? low : text.replace(/[A-Z]+/g, (part) => part.toLowerCase());
  };

  // Where each line begins, and behind the last one.
  const starts_of = (text) => {
    const starts = [0];
    for (let at = text.indexOf("\n"); at >= 0; at = text.indexOf("\n", at + 1)) starts.push(at + 1);
    starts.push(text.length + 1);
    return Int32Array.from(starts);
  };

  const read_names = (first, names, scopes, scope_runs, kind_runs) => {
    const starts = starts_of(names);
    const count = starts.length - 1;
    const repeats = []; // lines with the name of the line before
    for (let line = 1; line < count; ++line) if (starts[line + 1] - starts[line] === 1) repeats.push(line);
    const list = scopes.split("\n");
    return { first, count, names, low: lower(names), starts, repeats, scopes: list, low_scopes: list.map(lower),
      scope_of: spread_runs(scope_runs, new Uint32Array(count)),
      kind_of: spread_runs(kind_runs, new Uint16Array(count)) };
  };

  const read_block = (paths, entries) => {
    const places = paths.split("\n");
    let path = 0, file = "";
    return entries.split("\n").map((line) => {
      const [href, place, summary] = line.split("\t");
      const [number, line_number] = place.split(":");
      if (number) path = parseInt(number, 36);
      if (href[0] === "=") file = href.slice(1).split("#")[0] || file;
      return { href, file, place: line_number ? `${places[path]}:${line_number}` : "", summary };
    });
  };

  globalThis.vlSearch = {
    start: (content) => settle.index?.(content),
    names: (number, ...content) => settle[`n-${number}`]?.(read_names(...content)),
    types: (number, types, signatures) => settle[`s-${number}`]?.(
      { types: types.split("\n").map(tidy_type), signatures: signatures.split(";") }),
    block: (number, paths, entries) => settle[`b-${number}`]?.(read_block(paths, entries)),
    words: (key, content) => settle[`w-${file_of(key)}`]?.(content),
  };

  let all; // promise of the index with its parts
  const data = () => {
    all ??= load("index").then(async (index) => {
      if (!index) return (all = null);
      const parts = await Promise.all(Array.from({ length: index.parts }, (_, number) => load(`n-${number}`)));
      return { ...index, names: parts.filter((part) => part) };
    });
    return all;
  };

  const line_at = (part, line) => {
    while (line > 0 && part.starts[line + 1] - part.starts[line] === 1) --line;
    return part.names.slice(part.starts[line], part.starts[line + 1] - 1);
  };

  // ---- Names

  const is_word = (c) => c !== undefined && /[\p{L}\p{N}_]/u.test(c);
  const is_upper = (c) => c >= "A" && c <= "Z";
  const is_lower = (c) => c >= "a" && c <= "z";
  const is_digit = (c) => c >= "0" && c <= "9";

  // The beginning of a piece of a name: "read_File", "readFile", "XMLFile".
  const begins_piece = (names, at) => {
    const before = names[at - 1], here = names[at];
    return before === "_" || !is_word(before)
      || (is_upper(here) && (is_lower(before) || is_digit(before) || is_lower(names[at + 1] ?? "")));
  };

  const share = { whole: 100, beginning: 75, whole_piece: 60, piece: 52, humps: 50, inside: 32, typo: 22 };

  const better = (scores, line, score) => { if (score > scores[line]) scores[line] = score; };

  // How well the names of a part have the word; `word` as it was typed.
  const score_names = (part, word, scores) => {
    const low = lower(word), length = word.length;
    const { names, starts } = part;
    let line = 0, found = 0;
    for (let at = part.low.indexOf(low); at >= 0; at = part.low.indexOf(low, at + 1)) {
      while (starts[line + 1] <= at) ++line;
      const begin = starts[line], end = starts[line + 1] - 1, behind = at + length;
      const last = behind === end;
      let score = share.inside;
      if (at === begin) score = last ? share.whole : share.beginning;
      else if (begins_piece(names, at)) score = last || begins_piece(names, behind) ? share.whole_piece : share.piece;
      else if (length < 2) continue;
      score += 5 * length / (end - begin) + (names.startsWith(word, at) ? 1 : 0);
      better(scores, line, score);
      ++found;
    }
    return found;
  };

  // "basic_memoryBuffer" has the humps "bmb". A line for each name.
  const humps_of = (part) => {
    if (part.humps) return part.humps;
    let text = "";
    const { names } = part;
    for (let at = 0; at < names.length; ++at) {
      const c = names[at];
      if (c === "\n") text += c;
      else if (is_word(c) && c !== "_" && begins_piece(names, at)) text += part.low[at];
    }
    part.humps = { text, starts: starts_of(text) };
    return part.humps;
  };

  // "BMSB" and "BaMeStBu" are humps; "bmsb" is if nothing else is found.
  const humps_of_query = (word, any_case) => {
    const humps = word.match(/[A-Z][a-z0-9]*/g) ?? [];
    if (humps.length > 1 && humps.join("") === word) return humps;
    return any_case && /^[a-z]{3,8}$/i.test(word) ? [...word] : [];
  };

  const score_humps = (part, humps, scores) => {
    const initials = humps.map((hump) => hump[0].toLowerCase()).join("");
    const { text, starts } = humps_of(part);
    const exact = humps.some((hump) => hump.length > 1)
      ? new RegExp(humps.map((hump) => `${hump[0]}${hump.slice(1)}`).join("[a-z0-9]*_*"), "i") : null;
    let line = 0, found = 0;
    for (let at = text.indexOf(initials); at >= 0; at = text.indexOf(initials, at + 1)) {
      while (starts[line + 1] <= at) ++line;
      if (exact && !exact.test(line_at(part, line))) continue;
      const length = starts[line + 1] - 1 - starts[line];
      better(scores, line, share.humps * (at === starts[line] ? 1 : 0.7) + 8 * initials.length / length);
      ++found;
    }
    return found;
  };

  // All places with few typing errors, in one go over the letters: bits of numbers are columns of
  // the table of distances, and two letters that changed places count as one error.
  const score_typos = (part, word, scores) => {
    const low = lower(word).slice(0, 30), length = low.length;
    const most = length < 8 ? 1 : 2;
    const last = 1 << (length - 1);
    const places = new Map();
    [...low].forEach((c, at) => places.set(c.charCodeAt(0), (places.get(c.charCodeAt(0)) ?? 0) | 1 << at));
    const ascii = Int32Array.from({ length: 128 }, (_, code) => places.get(code) ?? 0);
    const { low: text, starts } = part;
    let up = -1, down = 0, diagonal = 0, before = 0, errors = length, line = 0, found = 0;
    for (let at = 0; at < text.length; ++at) {
      const code = text.charCodeAt(at);
      if (code === 10) {
        up = -1; down = 0; diagonal = 0; before = 0; errors = length; ++line;
        continue;
      }
      const same = code < 128 ? ascii[code] : places.get(code) ?? 0;
      diagonal = (((~diagonal & same) << 1) & before) | (((same & up) + up) ^ up) | same | down;
      const rises = down | ~(diagonal | up), falls = diagonal & up;
      if (rises & last) ++errors;
      else if (falls & last) --errors;
      up = (falls << 1) | ~(diagonal | (rises << 1));
      down = (rises << 1) & diagonal;
      before = same;
      if (errors > most) continue;
      const gap = Math.abs(starts[line + 1] - 1 - starts[line] - length);
      const beginning = text[starts[line]] === low[0] ? 4 : 0;
      better(scores, line, Math.max(2, share.typo + beginning - 6 * errors - Math.min(12, gap)));
      ++found;
    }
    return found;
  };

  // ---- Scopes

  const parts_of = (scope) => scope.split(/::|\./).filter((part) => part);

  const score_scopes = (part, word, scores) => {
    const low = lower(word);
    const by_scope = part.low_scopes.map((scope) => {
      if (!scope.includes(low)) return 0;
      const parts = parts_of(scope);
      return parts.includes(low) ? 20 : parts.some((one) => one.startsWith(low)) ? 14 : 6;
    });
    part.scope_of.forEach((scope, line) => { if (by_scope[scope]) better(scores, line, by_scope[scope]); });
  };

  // The wanted scopes stand in that order at the end of the scope, whole ones before others.
  const fit_of_scope = (scope, wanted) => {
    const parts = parts_of(scope);
    let at = parts.length, fit = 0;
    for (const want of wanted.toReversed()) {
      do --at; while (at >= 0 && !parts[at].startsWith(want));
      if (at < 0) return 0;
      fit += parts[at] === want ? 6 : 2;
    }
    return fit + (at + wanted.length === parts.length ? 4 : 0);
  };

  // ---- Types

  const tidy_type = (text) => lower(text).replace(/\s+/g, " ").replace(/ ?([^\p{L}\p{N}_ ]) ?/gu, "$1").trim();
  const bare_type = (type) => type.replace(/\b(const|volatile)\b/g, "").replace(/[&\s]+/g, "");

  // For each type of a part how well it is the wanted one.
  const fits_of_types = (types, wanted) => types.map((type) => {
    if (type === wanted) return 10;
    for (let at = type.indexOf(wanted); at >= 0; at = type.indexOf(wanted, at + 1)) {
      const behind = at + wanted.length;
      if ((is_word(wanted[0]) && is_word(type[at - 1])) || (is_word(wanted.at(-1)) && is_word(type[behind]))) continue;
      return bare_type(type) === bare_type(wanted) ? 9 : 5;
    }
    return bare_type(type) === bare_type(wanted) ? 8 : 0;
  });

  const fit_of_signature = (signature, parameters, result) => {
    const [list, returned] = signature.split(">");
    if (returned === undefined) return 0;
    let score = 1;
    if (result) score = returned ? result[parseInt(returned, 36)] : 0;
    if (!score || !parameters) return score;
    const types = list ? list.split(",").map((number) => parseInt(number, 36)) : [];
    if (!parameters.length) return types.length ? 0 : score + 10;
    let best = 0;
    for (let at = 0; at + parameters.length <= types.length; ++at) {
      const fits = parameters.map((fit, index) => fit[types[at + index]]);
      if (fits.every((fit) => fit)) best = Math.max(best, fits.reduce((a, b) => a + b));
    }
    return best ? score + best + (types.length === parameters.length ? 6 : 0) : 0;
  };

  const score_signatures = async (part, number, { parameters, result }, scores) => {
    const content = await load(`s-${number}`);
    if (!content) return;
    const wanted = parameters?.map((type) => fits_of_types(content.types, type));
    const returned = result && fits_of_types(content.types, result);
    const known = new Map([["", 0]]); // many are the same
    content.signatures.forEach((signature, line) => {
      let fit = known.get(signature);
      if (fit === undefined) known.set(signature, fit = fit_of_signature(signature, wanted, returned));
      scores[line] = fit;
    });
  };

  // ---- Texts

  // By the weight of a field in the index: what a whole word counts, and what its beginning does.
  const whole = [0, 6, 12, 30];
  const beginning = [0, 3, 8, 20];

  // Which entries have a word that begins with `query`, and how well: entry -> score. `common` if
  // there are more than the index lists.
  const entries_with = async (query, index) => {
    const longest = index.shards.filter((key) => query.startsWith(key))
      .reduce((a, b) => (b.length > a.length ? b : a), "");
    const keys = index.shards.filter((key) => key === longest || key.startsWith(query));
    const scores = new Map();
    let common = false;
    for (const shard of await Promise.all(keys.map((key) => load(`w-${file_of(key)}`)))) {
      for (let at = 0; at < (shard?.length ?? 0); at += 2) { // word, its fields, word ...
        const [word, fields] = [shard[at], shard[at + 1]];
        if (!word.startsWith(query)) continue;
        const values = word === query ? whole : beginning;
        for (const field of fields.split(";")) {
          if (field === "*") {
            common = true;
            continue;
          }
          const score = values[+field[0]] + 2 * query.length / word.length;
          let entry = 0;
          for (const step of field.slice(1).split(",")) {
            entry += parseInt(step, 36);
            if (!(scores.get(entry) >= score)) scores.set(entry, score);
          }
        }
      }
    }
    return { scores, common };
  };

  // ---- Questions

  const routines = ["function", "method", "constructor", "destructor", "operator", "friend", "signal", "slot"];
  const classes = ["class", "struct", "union", "interface", "record", "object"];
  const kind_words = new Map(Object.entries({
    fn: routines, func: routines, function: routines, method: ["method"], class: classes,
    struct: ["struct", "record"], enum: ["enum"], value: ["value"], enumerator: ["value"],
    type: [...classes, "enum", "type", "alias", "concept"], concept: ["concept"], alias: ["alias", "type"],
    typedef: ["alias", "type"], var: ["variable", "member", "constant"], const: ["constant"],
    member: ["member", "property"], field: ["member"], prop: ["property"], property: ["property"],
    event: ["event"], macro: ["macro"], define: ["macro"], ns: ["namespace", "unit"],
    namespace: ["namespace"], unit: ["unit"],
  }));

  // Commas that stand in no brackets part types.
  const split_types = (text) => {
    const types = [];
    let depth = 0, type = "";
    for (const c of text) {
      if ("(<[{".includes(c)) ++depth;
      else if (")>]}".includes(c)) --depth;
      if (c === "," && depth <= 0) {
        types.push(type);
        type = "";
      } else type += c;
    }
    return [...types, type].map(tidy_type).filter((one) => one);
  };

  const read_signature = (text) => {
    const arrow = text.indexOf("->");
    const front = (arrow < 0 ? text : text.slice(0, arrow)).trim();
    const result = arrow < 0 ? "" : tidy_type(text.slice(arrow + 2));
    const call = /^([^(]*)\((.*?)\)?$/.exec(front);
    if (call) return { rest: call[1], signature: { parameters: split_types(call[2]), result } };
    if (/[,*&<]/.test(front)) return { rest: "", signature: { parameters: split_types(front), result } };
    return { rest: front, signature: result ? { result } : null };
  };

  const signs = /^(?:[=<>!+\-*/%^&|~,]+|\(\)|\[\]|\S*operator\s*\S.*)$/;

  // What is asked for: { kinds, signature, operator, scope, words }.
  const read_question = (text) => {
    const question = { words: [], scope: [] };
    const kind = /^\s*([a-z]+):(?!:)\s*/i.exec(text);
    if (kind && kind_words.has(kind[1].toLowerCase())) {
      question.kinds = new Set(kind_words.get(kind[1].toLowerCase()));
      text = text.slice(kind[0].length);
    }
    text = text.trim();
    if (signs.test(text)) {
      const scope = /^(.*(?:::|\.))?(?:operator\s*)?(.*)$/.exec(text);
      question.operator = scope[2].replace(/\s/g, "").toLowerCase();
      question.scope = parts_of(lower(scope[1] ?? ""));
      return question;
    }
    if (/->|[,*&(]/.test(text)) {
      const { rest, signature } = read_signature(text);
      question.signature = signature;
      text = rest;
    }
    for (const word of text.split(/\s+/)) {
      const parts = word.split(/::|\.(?=[\p{L}_~]|$)/u);
      if (parts.length > 1) question.scope.push(...parts.slice(0, -1).filter((part) => part).map(lower));
      question.words.push(...(parts.at(-1).match(/~?[\p{L}\p{N}_]+/gu) ?? []));
    }
    return question;
  };

  const is_empty = (question) => !question.words.length && !question.scope.length && !question.operator
    && !question.signature && !question.kinds;

  // ---- Answers

  const arrays = (index) => index.names.map((part) => new Float32Array(part.count));
  const repeat = (index, lists) => {
    index.names.forEach((part, at) => { for (const line of part.repeats) better(lists[at], line, lists[at][line - 1]); });
  };
  const over_parts = (index, lists, work) => index.names.reduce((sum, part, at) => sum + (work(part, lists[at]) ?? 0), 0);

  const score_word = (index, word, text, own_scope) => {
    const lists = arrays(index);
    let found = over_parts(index, lists, (part, scores) => score_names(part, word, scores));
    const humps = humps_of_query(word, !found);
    if (humps.length) found += over_parts(index, lists, (part, scores) => score_humps(part, humps, scores));
    if (!found && word.length > 3) over_parts(index, lists, (part, scores) => score_typos(part, word, scores));
    repeat(index, lists);
    if (own_scope) over_parts(index, lists, (part, scores) => { if (word.length > 1) score_scopes(part, word, scores); });
    if (!text) return lists;
    index.names.forEach((part, at) => {
      if (text.common) for (let line = 0; line < part.count; ++line) better(lists[at], line, 0.5);
    });
    for (const [entry, score] of text.scores) {
      const at = index.names.findLastIndex((part) => part.first <= entry);
      if (at >= 0) better(lists[at], entry - index.names[at].first, score);
    }
    return lists;
  };

  const score_operator = (index, sign) => {
    const lists = arrays(index);
    for (const word of [`operator${sign}`, `operator ${sign}`])
      over_parts(index, lists, (part, scores) => score_names(part, word, scores));
    repeat(index, lists);
    return lists;
  };

  const score_scope = (index, wanted) => {
    const lists = arrays(index);
    over_parts(index, lists, (part, scores) => {
      const fits = part.low_scopes.map((scope) => fit_of_scope(scope, wanted));
      part.scope_of.forEach((scope, line) => { scores[line] = fits[scope]; });
    });
    return lists;
  };

  // All that has to fit, as scores by part and line.
  const scores_of = async (index, question, texts) => {
    const all_scores = [];
    const alone = question.words.length === 1;
    for (const [at, word] of question.words.entries())
      all_scores.push(score_word(index, word, texts?.[at], !question.scope.length && !alone));
    if (question.operator) all_scores.push(score_operator(index, question.operator));
    if (question.scope.length) all_scores.push(score_scope(index, question.scope));
    if (question.signature) {
      const lists = arrays(index);
      await Promise.all(index.names.map((part, at) => score_signatures(part, at, question.signature, lists[at])));
      all_scores.push(lists);
    }
    return all_scores;
  };

  const kind_bonus = (css) => (classes.includes(css) || css === "namespace" || css === "concept" || css === "enum" ? 2
    : css === "unit" || css === "function" || css === "macro" ? 1 : 0);

  // What a library keeps to itself comes behind what it offers.
  const inner = /(?:^|::|\.)(?:detail|details|internal|impl|aux|_)(?:::|\.)/;

  // The numbers of the best entries, as [part, line, score], and how many there are in all.
  const best_of = (index, question, all_scores, most) => {
    const wanted = index.kinds.map(([, css]) => !question.kinds || question.kinds.has(css));
    const bonus = index.kinds.map(([, css]) => kind_bonus(css));
    const totals = index.names.map((part) => new Uint16Array(part.count));
    const steps = new Uint32Array(2048);
    index.names.forEach((part, at) => {
      const lists = all_scores.map((scores) => scores[at]);
      part.inner ??= part.low_scopes.map((scope) => (inner.test(scope) ? 4 : 0));
      for (let line = 0; line < part.count; ++line) {
        if (!wanted[part.kind_of[line]]) continue;
        let sum = 1;
        for (let list = 0; list < lists.length && sum; ++list) sum = lists[list][line] ? sum + lists[list][line] : 0;
        if (!sum) continue;
        sum += bonus[part.kind_of[line]] - part.inner[part.scope_of[line]];
        const total = Math.max(1, Math.min(2047, Math.round(2 * sum)));
        totals[at][line] = total;
        ++steps[total];
      }
    });
    const count = steps.reduce((a, b) => a + b);
    let least = 2047, held = steps[least];
    while (least > 1 && held < most) held += steps[--least];
    const best = [];
    index.names.forEach((part, at) => totals[at].forEach((total, line) => {
      if (total >= least && total) best.push([part, line, total]);
    }));
    return { best, count };
  };

  vlSearch.hit_at = (part, line) => ({ name: line_at(part, line), scope: part.scopes[part.scope_of[line]],
    entries: [part.first + line] });

  const limit = 5000; // of hits that are sorted: all of the same score are

  const hits_of = (index, { best, count }, most) => {
    const length = ([part, line]) => part.scopes[part.scope_of[line]].length + line_at(part, line).length;
    const sorted = best.slice(0, limit).map((hit) => [...hit, length(hit)])
      .sort((a, b) => b[2] - a[2] || a[3] - b[3] || a[0].first + a[1] - b[0].first - b[1]);
    const sets = new Map(); // overloads are one hit
    for (const [part, line] of sorted) {
      const hit = { ...vlSearch.hit_at(part, line), kind: index.kinds[part.kind_of[line]] };
      const key = hit.kind[0] ? [hit.scope, hit.name, hit.kind[0]].join("\n") : part.first + line;
      const known = sets.get(key);
      if (known) known.entries.push(part.first + line);
      else if (sets.size <= most) sets.set(key, hit);
    }
    const hits = [...sets.values()];
    return { hits: hits.slice(0, most), more: hits.length > most, count };
  };

  // The best `most` hits by names alone, or with those of texts; null for an empty question.
  vlSearch.find = async (text, most, with_texts) => {
    const question = read_question(text);
    if (is_empty(question)) return null;
    const index = await data();
    if (!index) return { hits: [], more: false, count: 0, words: [] };
    const texts = with_texts && await Promise.all(question.words.map((word) =>
      (word.length > 1 ? entries_with(word.toLowerCase(), index) : { scores: new Map() })));
    const best = best_of(index, question, await scores_of(index, question, texts), 4 * most);
    const words = [...question.words, ...question.scope, question.operator].filter((word) => word).map(lower);
    return { ...hits_of(index, best, most), words };
  };

  // The address in short, as the index has it.
  const address_of = ({ href, file }, hit) => {
    const points = hit.scope.replaceAll("::", ".");
    if (!href) return `${points}${hit.name}.htm`;
    const sign = href.indexOf("#");
    if (sign < 0) return file;
    const short = href.slice(sign + 1);
    const anchor = !short || short[0] === "-" ? hit.name + short
      : short === "." || short.startsWith(".-") ? points + hit.name + short.slice(1) : short;
    return `${sign ? file : `${points.replace(/\.$/, "")}.htm`}#${anchor}`;
  };

  // What is shown beside a hit: { href, place, summary }, and the first summary of overloads.
  vlSearch.details = async (hit) => {
    const index = await data();
    const looked_at = hit.entries.slice(0, 8);
    const found = (await Promise.all(looked_at.map(async (entry) => {
      const block = await load(`b-${Math.floor(entry / index.block)}`);
      return block?.[entry % index.block];
    }))).filter((entry) => entry);
    if (!found.length) return null;
    return { href: new URL(address_of(found[0], hit), site).href, place: found[0].place,
      summary: found.find((entry) => entry.summary)?.summary ?? "" };
  };

  vlSearch.site = site;
  vlSearch.prepare = data;
})();
