// The player: it goes through the menu along the graph of the tool's walk, and paints the patches that each state differs
// by. Its place and the values that were changed stand in the address.

const KEYS = ['up', 'down', 'left', 'right', 'ok', 'back'];
const KEY_NAMES = {ArrowUp: 0, ArrowDown: 1, ArrowLeft: 2, ArrowRight: 3, Enter: 4, Backspace: 5};
const [LEFT, RIGHT] = [2, 3];
const screen_context = find('screen').getContext('2d', {willReadFrequently: true});
const decoding = new Map();
let drawing = 0;

const played_language = () => coded(menus[place.menu], place.code);

// The tool gives a state as [page, row, next, patches, scene].
function played_state(language = played_language(), number = place.state) {
  const [page, row, next, patches, scene] = language.states[number];
  return {page: language.pages[page], row: language.pages[page].rows[row], next, patches, scene: language.scenes[scene]};
}

function decoded(number) {
  if (!decoding.has(number)) {
    const image = make('img', {src: source_of(number)});
    decoding.set(number, image.decode().then(() => image));
  }
  return decoding.get(number);
}

// The page's picture, what the state changes on it, and then what each changed value does.
function layers(language, {page, patches, scene}) {
  const changed = [...place.values].flatMap(([item, value]) =>
    ((scene.get(item) || []).find(([each]) => each === value) || [0, []])[1]);
  return [[0, 0, page.picture], ...patches.concat(changed).map(([x, y, number]) => [x, y, language.pictures[number]])];
}

async function draw() {
  const turn = ++drawing;
  const wanted = layers(played_language(), played_state());
  const images = await Promise.all(wanted.map(([, , number]) => decoded(number)));
  if (turn !== drawing) return;
  const {canvas} = screen_context;
  [canvas.width, canvas.height] = [images[0].naturalWidth, images[0].naturalHeight];
  images.forEach((image, index) => {
    const [x, y] = wanted[index];
    screen_context.clearRect(x, y, image.naturalWidth, image.naturalHeight);
    screen_context.drawImage(image, x, y);
  });
  canvas.dataset.drawn = turn;
}

function say() {
  const {page, row} = played_state();
  const values = row && played_language().values.get(row.name);
  const set = row && place.values.get(row.name);
  const value = values && values.find(([each]) => each === set);
  find('said').textContent = row ? row_text(value ? {...row, value: value[3]} : row) : title_of(page);
  find('player-title').textContent = title_of(page);
  find('player-language').value = place.code;
  find('said').lang = find('player-title').lang = lang_of(place.code);
}

function show_place() {
  say();
  draw();
  save();
}

// The same row of the same page, which another language may reach by other states.
function change_language(code) {
  const language = coded(menus[place.menu], code);
  if (!language) return;
  const {page, row} = played_state();
  const is_same = (number) => {
    const there = played_state(language, number);
    return there.page.name === page.name && (there.row && there.row.name) === (row && row.name);
  };
  const numbers = [place.state, ...language.states.keys()].filter((number) => number < language.states.length);
  place.state = numbers.find(is_same) || 0;
  place.code = code;
  place.values.delete('language'); // it shows the language that is loaded
}

function change_value(key) {
  const {row} = played_state();
  const values = row && played_language().values.get(row.name);
  if (!values || !values.length) return;
  const set = place.values.get(row.name);
  const now = values.find(([value]) => value === set) || values[0];
  const [value] = values[now[key === LEFT ? 1 : 2]];
  place.values.set(row.name, value);
  if (row.name === 'language') change_language(menus[place.menu].order[value]);
}

function press(key) {
  const {next} = played_state();
  if (key === LEFT || key === RIGHT) change_value(key);
  else place.state = next[key];
  show_place();
}

function play(at) {
  place = at;
  const {languages, background} = menus[place.menu];
  find('player-language').replaceChildren(...languages.map(({code}) => make('option', {}, code)));
  find('player').style.setProperty('--own', background);
  if (!find('player').open) find('player').showModal();
  find('screen').focus();
  show_place();
}

const states_of = ({language, page}) =>
  [...language.states.keys()].filter((state) => played_state(language, state).page.name === page.name);

// Pages that are gone or that no key opens have no states.
const is_played = (version) => version.page.state !== null && states_of(version).length > 0;

// At a row that can be chosen, or else where the page opens.
function play_from(version, name) {
  const {menu, language} = version;
  const states = states_of(version);
  const at_row = states.find((state) => (played_state(language, state).row || {}).name === name);
  const state = at_row === undefined ? states[0] : at_row;
  if (state !== undefined) play({menu: menus.indexOf(menu), code: language.code, state, values: new Map()});
}

function start_player() {
  const player = find('player');
  player.onkeydown = (event) => {
    const key = KEY_NAMES[event.key];
    const {tagName} = event.target;
    if (event.altKey || event.ctrlKey || event.metaKey || key === undefined || tagName === 'SELECT' || (tagName === 'BUTTON' && event.key === 'Enter')) return;
    event.preventDefault();
    press(key);
  };
  KEYS.forEach((key, number) => { player.querySelector('.' + key).onclick = () => press(number); });
  find('player-close').onclick = () => player.close();
  player.onclose = () => { place = null; save(); };
  find('player-language').onchange = (event) => { change_language(event.target.value); show_place(); };
}
