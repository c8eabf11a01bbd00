'use strict';
// The gallery's page: it filters, sorts and compares what the tool painted, and plays the menu. All of it is in `data`;
// what is shown is in the controls, and from there in the address. Texts of a menu only ever become text.

const data = JSON.parse(document.getElementById('data').textContent);
const find = (id) => document.getElementById(id);
const controls = find('controls');

function make(tag, properties, ...children) {
  const made = Object.assign(document.createElement(tag), properties);
  made.append(...children);
  return made;
}

// --- What was painted ---

const row_of = ([name, text, value, y, height, free, freeValue, digest]) =>
  ({name, text, value, y, height, digest, free, freeValue});

// Pictures of a language count in a list of its own, since it was painted alone.
function read_language({code, painted, pictures}) {
  const pages = painted.pages.map((page) =>
    ({...page, picture: pictures[page.picture], marked: pictures[page.marked], rows: page.rows.map(row_of)}));
  return {...painted, code, pictures, pages, values: new Map(painted.values), scenes: painted.scenes.map((s) => new Map(s))};
}
const read_menu = (menu) => ({...menu, languages: menu.languages.map(read_language)});
const menus = data.menus.map(read_menu);
const before = data.before && read_menu(data.before);

const source_of = (picture) => 'data:image/png;base64,' + data.pictures[picture];

// From the head of the PNG file.
function size_of(picture) {
  const number = (at) => [...atob(data.pictures[picture].slice(0, 32))].slice(at, at + 4)
    .reduce((sum, byte) => sum * 256 + byte.charCodeAt(0), 0);
  return {width: number(16), height: number(20)};
}

const named = (list, name) => list && list.find((each) => each.name === name);
const coded = (menu, code) => menu && menu.languages.find((each) => each.code === code);
const painted_rows = (page) => page.rows.filter((row) => row.y >= 0);
const row_text = (row) => row.text + (row.value ? ': ' + row.value : '');
const title_of = (page) => page.path.join(' › ') || 'Top list';
const lang_of = (code) => code.replace('_', '-');
const tightness = (page) =>
  Math.min(...page.rows.flatMap((row) => row.freeValue === null ? [row.free] : [row.free, row.freeValue]));

// What a search finds a row by: also choices that no picture shows.
const row_words = (language, row) =>
  [row.name, row.text, row.value, ...(language.values.get(row.name) || []).map((value) => value[3])].join('\n');

// A row with the same picture at another place only moved.
function row_changes(old, page) {
  const told = page.rows.flatMap((row) => {
    const was = named(old.rows, row.name);
    if (!was) return [`${row.name}: new`];
    if (was.digest !== row.digest) return [`${row.name}: changed`];
    return was.y !== row.y ? [`${row.name}: moved`] : [];
  });
  return told.concat(old.rows.filter((row) => !named(page.rows, row.name)).map((row) => `${row.name}: gone`));
}

// One page in one language, as it is or was.
function version_of(menu, language, name) {
  const page = named(language && language.pages, name);
  const earlier = coded(before, language.code);
  const old = named(earlier && earlier.pages, name);
  const status = !before ? '' : !old ? 'new' : !page ? 'gone' : old.picture === page.picture ? 'same' : 'changed';
  const shown = page || old;
  const texts = [title_of(shown), name, ...shown.rows.map((row) => row_words(language, row))];
  return {menu, language, page: shown, old, status, words: texts.join('\n').toLowerCase()};
}

// Pages in the menu's order, each with its versions.
function pages_of(menu) {
  const gone = before ? before.languages.filter((each) => !coded(menu, each.code)).map((each) => ({...each, pages: [], states: []})) : [];
  const languages = menu.languages.concat(gone);
  const has = (language, name) => named(language.pages, name) || named((coded(before, language.code) || {}).pages, name);
  const all = languages.concat(before ? before.languages : []).flatMap((language) => language.pages.map((page) => page.name));
  return [...new Set(all)].map((name) => ({menu, name,
    versions: languages.filter((language) => has(language, name)).map((language) => version_of(menu, language, name))}));
}

function findings_of(menu, version) {
  return menu.findings.filter(([, , , subject, language]) => (!language || language === version.language.code) &&
    (subject === version.page.name || named(version.page.rows, subject)));
}

// --- Cards ---

function notes(texts) {
  return make('ul', {className: 'notes'}, ...texts.map(([severity, rule, text]) =>
    make('li', {className: severity}, rule ? `${severity} ${rule}: ${text}` : text)));
}

const finding_text = ([severity, rule, text, , language]) => [severity, rule, language ? `${language}: ${text}` : text];

function picture(number, className, alt) {
  const made = make('img', {className, alt, ...size_of(number)});
  made.dataset.picture = number;
  return made;
}

// One stop of the Tab key for each page; the arrow keys go on from row to row.
function row_boxes(version) {
  const {height} = size_of(version.page.picture);
  const rows = painted_rows(version.page);
  const ariaDisabled = String(!is_played(version));
  const buttons = rows.map((row, index) => {
    const value = row.freeValue === null ? '' : `, ${row.freeValue} px beside its value`;
    const box = make('button', {type: 'button', tabIndex: index ? -1 : 0, ariaDisabled,
      onclick: () => play_from(version, row.name)},
      make('span', {}, `${row.name} “${row_text(row)}”: ${row.free} px free${value}`));
    box.style.top = row.y / height * 100 + '%';
    box.style.height = row.height / height * 100 + '%';
    return box;
  });
  const list = make('ol', {className: 'rows'}, ...buttons.map((box) => make('li', {}, box)));
  list.onkeydown = (event) => {
    const step = {ArrowDown: 1, ArrowUp: -1}[event.key];
    const next = step && buttons[buttons.indexOf(document.activeElement) + step];
    if (!next) return;
    event.preventDefault();
    buttons.forEach((box) => { box.tabIndex = box === next ? 0 : -1; });
    next.focus();
  };
  version.boxes = rows.map((row, index) => ({box: buttons[index], words: row_words(version.language, row).toLowerCase()}));
  mark_hits(version);
  return list;
}

function mark_hits(version) {
  const wanted = controls.q.value.trim().toLowerCase();
  for (const {box, words} of version.boxes || []) box.classList.toggle('hit', wanted !== '' && words.includes(wanted));
}

// Pictures are there while they are near the screen, and row boxes from the first time on.
const nearby = new IntersectionObserver((entries) => {
  for (const {target, isIntersecting} of entries) {
    for (const image of target.querySelectorAll('img'))
      if (!isIntersecting) image.removeAttribute('src');
      else if (!image.src) image.src = source_of(image.dataset.picture);
    const frame = target.querySelector('.frame');
    if (isIntersecting && frame.childElementCount === 1) frame.append(row_boxes(target.version));
  }
}, {rootMargin: '600px'});

function compare_controls(pair, old) {
  const cut = make('input', {type: 'range', className: 'cut', value: 50, ariaLabel: 'Where the earlier picture ends'});
  cut.oninput = () => pair.style.setProperty('--cut', cut.value + '%');
  const swap = make('button', {type: 'button', className: 'swap'}, 'Swap old and new');
  swap.onclick = () => old.classList.toggle('shown', !old.classList.toggle('swapped'));
  return [cut, swap];
}

function card(version) {
  const {page, language, status, old} = version;
  const tight = tightness(page);
  const frame = make('div', {className: 'frame'}, picture(page.picture, 'now', painted_rows(page).map(row_text).join(', ')));
  const pair = make('div', {className: 'pair ' + status}, frame);
  const figure = make('figure', {className: status, tabIndex: -1, lang: lang_of(language.code), version},
    make('figcaption', {}, make('b', {}, language.code), make('span', {className: 'status', hidden: !status}, status),
      make('span', {className: 'sides', hidden: status !== 'changed'}, 'before, and now'),
      make('span', {className: tight < 0 ? 'tight over' : 'tight'}, tight < Infinity ? `tightest ${tight} px` : '')),
    make('div', {className: 'scroll'}, pair));
  if (status === 'changed') {
    const was = picture(old.picture, 'old', 'Before: ' + painted_rows(old).map(row_text).join(', '));
    pair.append(was);
    if (page.marked !== undefined) pair.append(picture(page.marked, 'marked', 'Changed pixels'));
    figure.append(...compare_controls(pair, was), notes(row_changes(old, page).map((text) => ['', '', text])));
  }
  const findings = findings_of(version.menu, version);
  if (findings.length) figure.append(notes(findings.map(finding_text)));
  const {width, height} = size_of(page.picture);
  pair.style.cssText = `--w: ${width}; --h: ${height}`;
  version.figure = figure;
  nearby.observe(figure);
  return figure;
}

function page_section(page) {
  page.section = make('section', {},
    make('h3', {}, make('span', {lang: lang_of(page.versions[0].language.code), dir: 'auto'}, title_of(page.versions[0].page)),
      make('small', {}, page.name)),
    make('div', {className: 'versions'}, ...page.versions.map(card)));
  return page.section;
}

const first_language = (menu) => shown_languages().find((code) => coded(menu, code)) || menu.languages[0].code;

function menu_section(menu, number) {
  menu.pages = pages_of(menu);
  const start = make('button', {type: 'button', className: 'play', ariaLabel: 'Play this menu: ' + menu.name}, '▶ Play this menu');
  start.onclick = () => play({menu: number, code: first_language(menu), state: 0, values: new Map()});
  const homeless = menu.findings.filter((finding) =>
    !menu.pages.some((page) => page.versions.some((version) => findings_of({findings: [finding]}, version).length)));
  const unreached = new Set(menu.languages.flatMap((language) => language.unreached.map((path) => path.join(' › '))));
  const told = homeless.map(finding_text).concat([...unreached].map((path) => ['', '', `No key leads to ${path}`]),
    menu.languages.every((language) => language.whole) ? [] : [['', '', 'The menu has more states than were walked']]);
  menu.section = make('section', {}, make('div', {className: 'head'}, make('h2', {}, menu.name), start),
    ...(told.length ? [notes(told)] : []), ...menu.pages.map(page_section));
  menu.section.style.setProperty('--own', menu.background);
  return menu.section;
}

// --- What is shown ---

const shown_languages = () => [...controls.querySelectorAll('[name=lang]:checked')].map((box) => box.value);

function is_shown(version, wanted, languages) {
  return (!languages.length || languages.includes(version.language.code)) && version.words.includes(wanted);
}

function show() {
  const wanted = controls.q.value.trim().toLowerCase();
  const languages = shown_languages();
  const versions = [];
  menus.forEach((menu, number) => {
    menu.section.hidden = controls.menu.value !== '' && controls.menu.value !== String(number);
    for (const page of menu.pages) {
      const shown = page.versions.filter((version) => is_shown(version, wanted, languages));
      for (const version of page.versions) version.figure.hidden = !shown.includes(version);
      shown.forEach(mark_hits);
      page.section.hidden = !shown.length;
      page.tightness = Math.min(...shown.map((version) => tightness(version.page)));
      if (!menu.section.hidden) versions.push(...shown);
    }
    const sorted = controls.sort.value ? [...menu.pages].sort((a, b) => a.tightness - b.tightness) : menu.pages;
    menu.section.append(...sorted.map((page) => page.section));
  });
  const pages = new Set(versions.map((version) => version.menu.name + '\n' + version.page.name)).size;
  find('count').textContent = `${pages} pages, ${versions.length} pictures`;
  show_statuses(versions);
  show_look();
}

// Each button goes to the next page of its kind.
function show_statuses(versions) {
  find('statuses').replaceChildren(...(before ? ['changed', 'new', 'gone', 'same'] : []).map((status) => {
    const figures = versions.filter((version) => version.status === status).map((version) => version.figure);
    const jump = make('button', {type: 'button', disabled: !figures.length}, `${figures.length} ${status}`);
    let next = 0;
    jump.onclick = () => {
      const figure = figures[next++ % figures.length];
      figure.scrollIntoView({block: 'start'});
      figure.focus({preventScroll: true});
    };
    return jump;
  }));
}

function show_look() {
  const {style, classList, dataset} = document.body;
  const zoom = Number(controls.zoom.value);
  classList.toggle('zoomed', zoom > 0);
  classList.toggle('pixelated', zoom >= 1);
  style.setProperty('--zoom', zoom / devicePixelRatio);
  style.setProperty('--chosen', controls.colour.value);
  dataset.background = controls.background.value;
  dataset.compare = controls.compare.value;
  controls.colour.hidden = controls.background.value !== 'colour';
  find('all').checked = !shown_languages().length;
}

// --- The address ---

let place = null; // in the menu that is played

function save() {
  const address = new URLSearchParams();
  for (const [key, value] of new FormData(controls))
    if (value && (key !== 'colour' || controls.background.value === 'colour')) address.append(key, value);
  if (place) {
    address.append('play', [place.menu, place.state, place.code].join(' '));
    for (const [item, value] of place.values) address.append('set', value + ' ' + item);
  }
  history.replaceState(null, '', '#' + address);
}

// A choice that there is none of is none.
function restore_control(control, value) {
  if (control.type === 'color') control.value = value || '#3a6ea5';
  else control.value = control.options && ![...control.options].some((option) => option.value === value) ? '' : value;
}

function restore() {
  const address = new URLSearchParams(location.hash.slice(1));
  for (const control of controls.elements)
    if (control.name === 'lang') control.checked = address.getAll('lang').includes(control.value);
    else if (control.name) restore_control(control, address.get(control.name) || '');
  show();
  const [menu, state, code] = (address.get('play') || '').split(' ');
  const language = coded(menus[Number(menu)], code);
  if (!language || !language.states[Number(state)]) {
    if (place) find('player').close();
    return;
  }
  const values = new Map(address.getAll('set').map((text) => [text.slice(text.indexOf(' ') + 1), parseInt(text, 10)]));
  play({menu: Number(menu), state: Number(state), code, values});
}

// --- Start ---

function start() {
  const codes = new Set(menus.concat(before || []).flatMap((menu) => menu.languages.map((language) => language.code)));
  for (const code of codes)
    find('languages').append(make('label', {}, make('input', {type: 'checkbox', name: 'lang', value: code}), ' ' + code));
  menus.forEach((menu, number) => controls.menu.append(make('option', {value: number}, menu.name)));
  find('menus').hidden = menus.length < 2;
  find('compares').hidden = !before;
  find('backgrounds').hidden = !menus.some((menu) => menu.languages.some((language) => language.transparent));
  find('main').append(...menus.map(menu_section));
  start_player();
  controls.oninput = () => { show(); save(); };
  controls.onsubmit = (event) => event.preventDefault();
  find('all').onchange = () => {
    controls.querySelectorAll('[name=lang]').forEach((box) => { box.checked = false; });
    show();
    save();
  };
  find('skip').onclick = (event) => { event.preventDefault(); find('main').focus(); };
  window.onresize = show_look; // the density of pixels may be another
  window.onhashchange = restore;
  restore();
}
