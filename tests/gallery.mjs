// What a reviewer does with a gallery, in a browser without a server or a network.
// usage: node gallery.mjs TOOL DIRECTORY, where plain.html, against.html and now/ are.
import assert from 'node:assert/strict';
import {execFileSync} from 'node:child_process';
import {readFileSync} from 'node:fs';
import {chromium} from 'playwright-core';

const [tool, place] = process.argv.slice(2);
const faults = [];

async function open(browser, file, viewport = {width: 1300, height: 900}) {
  const page = await browser.newPage({viewport, reducedMotion: 'reduce'}); // a page that still scrolls is hard to hit
  page.on('console', (message) => ['error', 'warning'].includes(message.type()) && faults.push(message.text()));
  page.on('pageerror', (error) => faults.push(String(error)));
  page.on('requestfailed', (request) => faults.push('failed: ' + request.url().slice(0, 100)));
  page.on('request', (request) => /^(file|data):/.test(request.url()) || faults.push('asked for ' + request.url()));
  await page.goto('file://' + place + '/' + file);
  return page;
}

const style = (image, name) => image.evaluate((one, key) => getComputedStyle(one)[key], name);
const figures = (page) => page.locator('figure:visible');
const figure_of = (page, name, code) =>
  page.locator('section section', {has: page.locator('small', {hasText: new RegExp(`^${name}$`)})})
    .locator('figure', {has: page.locator('b', {hasText: code})});

async function pages_have_their_texts_and_are_found(page) {
  assert.equal(await figures(page).count(), 15 * 2);
  const alt = (code) => figure_of(page, 'exposure', code).locator('img.now').getAttribute('alt');
  assert.match(await alt('en'), /^Exposure, Mode: Automatic, Compensation: 0, Backlight: Off, .*, Dynamic range: 40%$/);
  assert.match(await alt('de'), /^Belichtung, .*Gegenlicht: Aus/);
  await page.waitForFunction(() => document.querySelector('img.now').naturalWidth === 1760);
  assert.equal(await page.locator('img.now').last().getAttribute('src'), null);
  await page.fill('[name=q]', 'gegenlicht');
  assert.equal(await figures(page).count(), 1);
  assert.equal(await page.locator('.rows .hit').count(), 1);
  await page.fill('[name=q]', 'MJPEG'); // not the choice on show
  assert.equal(await figures(page).count(), 2);
  await page.locator('.rows .hit').nth(1).waitFor();
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
  assert.equal(await rows.nth(1).locator('span').isVisible(), true);
  assert.equal(await rows.nth(2).locator('span').isVisible(), false);
  assert.equal(await rows.nth(1).innerText(), `exposure_mode “Mode: Automatic”: ${800 - mode.width} px free, ` +
    `${880 - widest} px beside its value`);
}

async function order_and_zoom_stay_in_the_address(page) {
  await page.selectOption('[name=sort]', 'tight');
  const numbers = await page.locator('section section:visible').evaluateAll((sections) => sections.map((section) =>
    Math.min(...[...section.querySelectorAll('.tight')].map((told) => parseInt(told.textContent.slice(9), 10)))));
  assert.ok(numbers.length === 15 && numbers[0] < numbers[14]);
  assert.deepEqual(numbers, [...numbers].sort((a, b) => a - b));
  await page.fill('[name=q]', 'exposure');
  await page.check('[name=lang][value=de]');
  await page.selectOption('[name=zoom]', '1');
  for (const look of ['as chosen', 'as it was before']) {
    const image = page.locator('img.now:visible').first();
    assert.deepEqual([look, await figures(page).count(), await page.isChecked('[name=lang][value=de]'),
      (await image.boundingBox()).width, await style(image, 'imageRendering')], [look, 2, true, 1760, 'pixelated']);
    await page.reload();
  }
  await page.evaluate(() => { location.hash = 'q=Gegenlicht'; });
  await page.waitForFunction(() => document.querySelectorAll('figure:not([hidden])').length === 1);
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
  for (const key of ['back', 'up', 'ok', 'ok', 'down', 'down']) await page.click('#keys .' + key);
  keys += ' back up ok ok down down';
  assert.equal(await page.textContent('#said'), 'Backlight: On');
  await page.selectOption('#player-language', 'de');
  assert.equal(await page.textContent('#said'), 'Gegenlicht: Ein');
  await assert_screen_is_shot(page, 'de', keys);
  await page.reload();
  assert.equal(await page.textContent('#said'), 'Gegenlicht: Ein');
  await assert_screen_is_shot(page, 'de', keys);
  await page.keyboard.press('Escape');
  await page.fill('[name=q]', 'language');
  await page.locator('figure:visible .rows button', {hasText: 'language “Language'}).first().click();
  await page.keyboard.press('ArrowRight');
  assert.equal(await page.inputValue('#player-language'), 'de');
  assert.equal(await page.textContent('#said'), 'Sprache: Deutsch');
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
  assert.ok((await old.boundingBox()).x < (await now.boundingBox()).x && !await marked.isVisible());
  await page.selectOption('[name=compare]', 'slider');
  await changed.locator('.cut').fill('20');
  assert.match(await style(old, 'clipPath'), /80%/);
  await page.selectOption('[name=compare]', 'blink');
  await page.emulateMedia({reducedMotion: 'no-preference'});
  assert.equal(await style(old, 'animationName'), 'blink');
  await page.emulateMedia({reducedMotion: 'reduce'});
  assert.equal(await style(old, 'animationName'), 'none');
  await changed.locator('.swap').click();
  assert.equal(await old.isVisible(), false);
  await page.selectOption('[name=compare]', 'marked');
  assert.equal(await marked.isVisible(), true);
}

async function a_menu_plays_in_a_language_that_it_has(page) {
  await page.check('[name=lang][value=en]');
  await page.locator('.play').nth(1).click(); // German alone
  assert.equal(await page.textContent('#said'), 'Kamera');
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
  await pages_have_their_texts_and_are_found(page);
  await rows_tell_their_room(page);
  await order_and_zoom_stay_in_the_address(page);
  await the_menu_plays_as_the_library_paints(page);
  await changes_are_counted_named_and_shown(await open(browser, 'against.html'));
  await a_menu_plays_in_a_language_that_it_has(await open(browser, 'two.html'));
  await a_phone_shows_all_of_it(await open(browser, 'plain.html', {width: 390, height: 844}));
  assert.deepEqual(faults, []);
} finally {
  await browser.close();
}
