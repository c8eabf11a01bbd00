// What a reviewer does with a gallery, in a browser without a server or a network.
// usage: node gallery.mjs TOOL DIRECTORY, where plain.html, against.html and now/ are.
import assert from 'node:assert/strict';
import {execFileSync} from 'node:child_process';
import {readFileSync} from 'node:fs';
import {chromium} from 'playwright-core';

const [tool, place] = process.argv.slice(2);
const faults = [];

async function open(browser, file, viewport = {width: 1300, height: 900}) {
  const page = await browser.newPage({viewport});
  page.on('console', (message) => ['error', 'warning'].includes(message.type()) && faults.push(message.text()));
  page.on('pageerror', (error) => faults.push(String(error)));
  page.on('requestfailed', (request) => faults.push('failed: ' + request.url().slice(0, 100)));
  page.on('request', (request) => /^(file|data):/.test(request.url()) || faults.push('asked for ' + request.url()));
  await page.goto('file://' + place + '/' + file);
  return page;
}

const figures = (page) => page.locator('figure:visible');
const figure_of = (page, name, code) =>
  page.locator('section section', {has: page.locator('small', {hasText: new RegExp(`^${name}$`)})})
    .locator('figure', {has: page.locator('b', {hasText: code})});
const alt_of = (page, name, code) => figure_of(page, name, code).locator('img.now').getAttribute('alt');
const said = (page) => page.textContent('#said');

async function shows_pages_with_their_texts(page) {
  assert.equal(await figures(page).count(), 15 * 2);
  assert.equal(await page.textContent('#count'), '15 pages, 30 pictures');
  assert.equal(await alt_of(page, 'exposure', 'en'), 'Exposure, Mode: Automatic, Compensation: 0, Backlight: Off, ' +
    'Gain limit: 8, Anti-flicker: 50 Hz, Dynamic range: 40%');
  assert.match(await alt_of(page, 'exposure', 'de'), /^Belichtung, .*Gegenlicht: Aus/);
  // Hidden until the camera opens it.
  assert.match(await alt_of(page, 'aimodeselection', 'en'), /^AI mode/);
  const image = figure_of(page, 'exposure', 'en').locator('img.now');
  await image.scrollIntoViewIfNeeded();
  await page.waitForFunction((one) => one.complete && one.naturalWidth === 1760, await image.elementHandle());
  assert.equal(await page.locator('img.now').last().getAttribute('src'), null);
}

async function search_narrows_and_marks_rows(page) {
  await page.fill('[name=q]', 'gegenlicht');
  assert.equal(await figures(page).count(), 1);
  assert.equal(await page.locator('.rows .hit').count(), 1);
  await page.fill('[name=q]', 'MJPEG'); // not the choice on show
  assert.equal(await figures(page).count(), 2);
  await page.fill('[name=q]', 'no such text');
  assert.equal(await page.textContent('#count'), '0 pages, 0 pictures');
  await page.fill('[name=q]', '');
}

// 80 and 880 are where texts and values start on a view of 1760 pixels.
async function rows_tell_their_room(page) {
  const all = (items) => items.flatMap((item) => [item, ...all(item.items)]);
  const told = JSON.parse(execFileSync(tool, ['inspect', place + '/now/en', '--json'], {maxBuffer: 1e8}));
  const mode = all(told.languages[0].items).find((item) => item.name === 'exposure_mode');
  const widest = Math.max(...mode.choices.map((choice) => choice.width));
  const rows = figure_of(page, 'exposure', 'en').locator('.rows button');
  await rows.first().focus();
  await page.keyboard.press('ArrowDown');
  assert.equal(await rows.nth(1).evaluate((row) => row === document.activeElement), true);
  assert.equal(await rows.nth(1).locator('span').isVisible(), true);
  assert.equal(await rows.nth(2).locator('span').isVisible(), false);
  assert.equal(await rows.nth(1).innerText(), `exposure_mode “Mode: Automatic”: ${800 - mode.width} px free, ` +
    `${880 - widest} px beside its value`);
}

async function the_tightest_comes_first(page) {
  await page.selectOption('[name=sort]', 'tight');
  const numbers = await page.locator('section section:visible').evaluateAll((sections) => sections.map((section) =>
    Math.min(...[...section.querySelectorAll('.tight')].map((told) => parseInt(told.textContent.slice(9), 10)))));
  assert.ok(numbers.length === 15 && numbers[0] < numbers[14]);
  assert.deepEqual(numbers, [...numbers].sort((a, b) => a - b));
  await page.selectOption('[name=sort]', '');
}

async function the_address_holds_what_is_shown(page) {
  await page.fill('[name=q]', 'exposure');
  await page.check('[name=lang][value=de]');
  await page.selectOption('[name=zoom]', '1');
  const look = async () => [await figures(page).count(), await page.inputValue('[name=q]'),
    await page.isChecked('#all'), await page.isChecked('[name=lang][value=de]'),
    await page.locator('.frame:visible').first().evaluate((frame) => frame.getBoundingClientRect().width),
    await page.locator('img.now').first().evaluate((image) => getComputedStyle(image).imageRendering)];
  const held = [2, 'exposure', false, true, 1760, 'pixelated'];
  assert.deepEqual(await look(), held);
  await page.reload();
  assert.deepEqual(await look(), held);
  await page.evaluate(() => { location.hash = ''; });
  await page.waitForFunction(() => document.querySelectorAll('figure:not([hidden])').length === 30);
}

// The canvas against the picture that the tool makes of the same keys.
async function assert_screen_is_shot(page, language, keys) {
  execFileSync(tool, ['shot', `${place}/now/${language}`, '-o', `${place}/shot.png`, '--keys', keys]);
  await page.waitForFunction(() => Number(screen_context.canvas.dataset.drawn) === drawing);
  const is_same = await page.evaluate(async (png) => {
    const image = await createImageBitmap(await (await fetch('data:image/png;base64,' + png)).blob());
    const context = new OffscreenCanvas(image.width, image.height).getContext('2d');
    context.drawImage(image, 0, 0);
    const [a, b] = [context, screen_context].map((each) => each.getImageData(0, 0, image.width, image.height).data);
    return screen_context.canvas.width === image.width && a.every((byte, at) => byte === b[at]);
  }, readFileSync(place + '/shot.png').toString('base64'));
  assert.ok(is_same, `${language}: ${keys}`);
}

const names = {up: 'ArrowUp', down: 'ArrowDown', left: 'ArrowLeft', right: 'ArrowRight', ok: 'Enter', back: 'Backspace'};

async function the_menu_plays_as_the_library_paints(page) {
  await page.click('.play');
  let keys = '';
  for (const key of 'ok ok right down right right down right up down back down down back down ok'.split(' ')) {
    await page.keyboard.press(names[key]);
    keys += ' ' + key;
    await assert_screen_is_shot(page, 'en', keys);
  }
  for (const key of ['back', 'up', 'ok', 'ok', 'down', 'down']) {
    await page.click('#keys .' + key);
    keys += ' ' + key;
  }
  await assert_screen_is_shot(page, 'en', keys);
  assert.equal(await said(page), 'Backlight: On');
  await page.selectOption('#player-language', 'de');
  assert.equal(await said(page), 'Gegenlicht: Ein');
  await assert_screen_is_shot(page, 'de', keys);
  await page.reload();
  assert.equal(await said(page), 'Gegenlicht: Ein');
  await assert_screen_is_shot(page, 'de', keys);
  await page.keyboard.press('Escape');
  assert.equal(await page.locator('dialog').isVisible(), false);
}

async function the_row_language_changes_the_language(page) {
  const row = page.locator('figure:visible .rows button', {hasText: 'language “Language'});
  await page.fill('[name=q]', 'language');
  await row.first().click();
  assert.equal(await page.inputValue('#player-language'), 'en');
  await page.keyboard.press('ArrowRight');
  assert.equal(await page.inputValue('#player-language'), 'de');
  assert.equal(await said(page), 'Sprache: Deutsch');
}

async function changes_are_counted_named_and_shown(page) {
  assert.deepEqual(await page.locator('#statuses button').allTextContents(), ['4 changed', '2 new', '2 gone', '24 same']);
  await page.locator('#statuses button').nth(2).click();
  assert.equal(await page.evaluate(() => document.activeElement.version.page.name), 'white_balance');
  const changed = figure_of(page, 'exposure', 'en');
  assert.deepEqual(await changed.locator('.notes li').allTextContents(), ['exposure_compensation: new',
    'backlight: changed', 'gain_limit: moved', 'anti_flicker: moved', 'dynamic_range: moved']);
  await changed.scrollIntoViewIfNeeded();
  const [now, old, marked] = ['now', 'old', 'marked'].map((name) => changed.locator('img.' + name));
  const box = async (image) => (await image.boundingBox()).x;
  assert.ok(await box(old) > await box(now) && !await marked.isVisible());
  await page.selectOption('[name=compare]', 'slider');
  assert.equal(await box(old), await box(now));
  await changed.locator('.cut').fill('20');
  assert.match(await old.evaluate((image) => getComputedStyle(image).clipPath), /80%/);
  await page.selectOption('[name=compare]', 'blink');
  assert.equal(await old.evaluate((image) => getComputedStyle(image).animationName), 'blink');
  await page.emulateMedia({reducedMotion: 'reduce'});
  assert.equal(await old.evaluate((image) => getComputedStyle(image).animationName), 'none');
  await changed.locator('.swap').click();
  assert.equal(await old.isVisible(), false);
  await page.selectOption('[name=compare]', 'marked');
  assert.equal(await marked.isVisible(), true);
  assert.equal(await figure_of(page, 'exposure', 'en').locator('img').count(), 3);
  assert.equal(await figure_of(page, 'network', 'en').locator('img').count(), 1);
}

async function a_phone_shows_all_of_it(page) {
  await page.click('.play');
  assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth));
  for (const name of ['Up', 'Down', 'Left', 'Right', 'OK', 'Back'])
    assert.equal(await page.getByRole('button', {name, exact: true}).isVisible(), true);
}

const browser = await chromium.launch({executablePath: '/usr/bin/chromium', args: ['no-sandbox', 'disable-gpu', 'disable-quic',
  'no-first-run', 'disable-background-networking', 'disable-component-update', 'disable-sync'].map((name) => '--' + name)});
try {
  const page = await open(browser, 'plain.html');
  await shows_pages_with_their_texts(page);
  await search_narrows_and_marks_rows(page);
  await rows_tell_their_room(page);
  await the_tightest_comes_first(page);
  await the_address_holds_what_is_shown(page);
  await the_menu_plays_as_the_library_paints(page);
  await the_row_language_changes_the_language(page);
  await changes_are_counted_named_and_shown(await open(browser, 'against.html'));
  await a_phone_shows_all_of_it(await open(browser, 'plain.html', {width: 390, height: 844}));
  assert.deepEqual(faults, []);
} finally {
  await browser.close();
}
