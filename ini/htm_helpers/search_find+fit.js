// How well names, scopes and types fit what is asked for. Stands in front of search_find.js in the
// file that pages load.
"use strict";

globalThis.vlFit = (() => {
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

  // `content` are the types of the part.
  const score_signatures = (content, { parameters, result }, scores) => {
    const wanted = parameters?.map((type) => fits_of_types(content.types, type));
    const returned = result && fits_of_types(content.types, result);
    const known = new Map([["", 0]]); // many are the same
    content.signatures.forEach((signature, line) => {
      let fit = known.get(signature);
      if (fit === undefined) known.set(signature, fit = fit_of_signature(signature, wanted, returned));
      scores[line] = fit;
    });
  };

  return { lower, starts_of, line_at, better, score_names, humps_of_query, score_humps, score_typos, parts_of,
    score_scopes, fit_of_scope, tidy_type, score_signatures };
})();
