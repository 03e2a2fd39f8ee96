// What the search finds: names by their words, pieces, humps and with a typing error, operators,
// scopes, kinds, types of routines, and words of texts. The data are a set of scripts in _search/,
// since pages from files may load nothing else; each calls one of the functions of vlSearch with its
// part.
"use strict";

(() => {
  const base = new URL("../_search/", document.currentScript.src);
  const site = new URL("../", base);
  const { lower, starts_of, line_at, better, score_names, humps_of_query, score_humps, score_typos, parts_of,
    score_scopes, fit_of_scope, tidy_type, score_signatures } = vlFit;

  // ---- The data

  const fetched = new Map(); // name of a file -> promise of its content
  const settle = {}; // name of a file -> what takes its content
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
    words: (number, content) => settle[`w-${number}`]?.(content),
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

  // ---- Texts

  // By the weight of a field in the index: what a whole word counts, and what its beginning does.
  const whole = [0, 6, 12, 30];
  const beginning = [0, 3, 8, 20];

  // As texts in the order of code points, which is that of the words: JavaScript has another one.
  const in_order = (text) => Array.from(text, (c) => c.codePointAt(0).toString(16).padStart(6, "0")).join("");

  // Files of words begin with the words of `shards`: the numbers of those that have words with this beginning.
  const files_with = (query, { shards }) => {
    const wanted = in_order(query);
    const behind = shards.findIndex((first) => in_order(first) > wanted);
    const begin = Math.max((behind < 0 ? shards.length : behind) - 1, 0);
    let end = Math.min(begin + 1, shards.length);
    while (end < shards.length && shards[end].startsWith(query)) ++end;
    return Array.from({ length: end - begin }, (_, at) => begin + at);
  };

  // Which entries have a word that begins with `query`, and how well: entry -> score. `common` if
  // there are more than the index lists.
  const entries_with = async (query, index) => {
    const scores = new Map();
    let common = false;
    for (const shard of await Promise.all(files_with(query, index).map((number) => load(`w-${number}`)))) {
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
      await Promise.all(index.names.map(async (_, at) => {
        const content = await load(`s-${at}`);
        if (content) score_signatures(content, question.signature, lists[at]);
      }));
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
