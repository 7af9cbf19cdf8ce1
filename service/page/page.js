// What the page does beyond its forms: a table that was reviewed becomes a list to work on. The
// service wrote every row, and writes it again where one is asked about again.
'use strict';

const review = document.getElementById('review');
const news = document.getElementById('news');

document.querySelectorAll('textarea').forEach((field) => field.addEventListener('keydown', (event) => {
  if (event.key === 'Enter' && (event.ctrlKey || event.metaKey)) field.form.requestSubmit();
}));
document.querySelectorAll('.answer').forEach((answer) => { if (answer.childElementCount) answer.focus(); });

if (review) {
  const list = review.querySelector('.rows');
  const titles = JSON.parse(review.dataset.titles);
  const places = JSON.parse(review.dataset.places);
  const tools = review.querySelector('.tools');
  const rows = () => [...list.children];
  const cellsOf = (row, name) => JSON.parse(row.dataset[name]);
  let shown = '';
  let saved = true;

  const quoted = (cell) => (/[",\r\n]|^\s|\s$/.test(cell) ? '"' + cell.replaceAll('"', '""') + '"' : cell);
  const record = (cells) => cells.map(quoted).join(',') + '\r\n';
  const tell = (text) => { news.textContent = text; };

  function button(text, action, into) {
    const made = document.createElement('button');
    made.type = 'button';
    made.textContent = text;
    made.addEventListener('click', action);
    into.append(made);
    return made;
  }

  // Whether the corrected cells go into the table, or those that were typed.
  function choose(row, choice) {
    row.dataset.choice = choice;
    saved = false;
    furnish(row);
  }

  // The buttons of a row, as they fit what is chosen.
  function furnish(row) {
    const about = row.querySelector('.about');
    about.querySelector('.actions')?.remove();
    row.dataset.choice ||= row.dataset.status === 'fixed' ? 'made' : row.dataset.made ? 'open' : 'none';
    const choice = row.dataset.choice;
    const actions = document.createElement('div');
    actions.className = 'actions';
    if (row.dataset.made && choice !== 'made') button('Accept', () => { choose(row, 'made'); focus(row); }, actions);
    if (row.dataset.made && choice !== 'typed') button('Keep as typed', () => { choose(row, 'typed'); focus(row); }, actions);
    if (cellsOf(row, 'added')[2] !== 'unreadable') {
      button('Edit', () => edit(row), actions);
      button('Ask again', () => ask([row]), actions);
    }
    about.append(actions);
    for (const meant of about.querySelectorAll('.meant li[data-made]')) {
      if (!meant.querySelector('button')) button('Ask about it', () => ask([row], [cellsOf(meant, 'made')]), meant);
    }
    about.querySelector('.badge').textContent =
      choice === 'typed' ? 'Kept as typed' :
      choice === 'made' && row.dataset.status !== 'fixed' ? 'Accepted' : names[row.dataset.status];
    const number = row.querySelector('.number').textContent;
    for (const each of about.querySelectorAll('button')) each.setAttribute('aria-label', each.textContent + ', row ' + number);
  }

  const focus = (row) => row.querySelector('.actions button')?.focus();

  // Fields for the cells of the address, in the row.
  function edit(row) {
    row.querySelector('.edit')?.remove();
    const form = document.createElement('form');
    form.className = 'edit';
    const cells = cellsOf(row, row.dataset.choice === 'made' ? 'made' : 'cells');
    const fields = places.map((place) => {
      const label = document.createElement('label');
      const field = document.createElement(places.length === 1 ? 'textarea' : 'input');
      field.value = cells[place] ?? '';
      label.append(titles[place], field);
      form.append(label);
      return field;
    });
    const actions = document.createElement('div');
    actions.className = 'actions';
    form.append(actions);
    const send = button('Ask about it', () => {}, actions);
    send.type = 'submit';
    button('Cancel', () => { form.remove(); focus(row); }, actions);
    form.addEventListener('keydown', (event) => {
      if (event.key === 'Escape') { form.remove(); focus(row); }
      if (event.key === 'Enter' && (event.ctrlKey || event.metaKey)) form.requestSubmit();
    });
    form.addEventListener('submit', (event) => {
      event.preventDefault();
      fields.forEach((field, i) => { cells[places[i]] = field.value; });
      ask([row], [cells]);
    });
    row.querySelector('.about').append(form);
    fields[0].focus();
  }

  // Has the service write those rows again. Where it cannot, they stay as they are.
  async function ask(asked, cells = asked.map((row) => cellsOf(row, 'cells'))) {
    tell('Asking about ' + (asked.length === 1 ? 'row ' + asked[0].querySelector('.number').textContent : asked.length + ' rows') + ' …');
    const table = record(titles) + cells.map(record).join('');
    let text = '';
    try {
      const reply = await fetch('/', {method: 'POST', body: new URLSearchParams({table, as: 'rows'})});
      text = await reply.text();
      if (!reply.ok) throw new Error();
    } catch {
      return tell('The service did not answer. The rows are as they were; ask again.');
    }
    const holder = document.createElement('template');
    holder.innerHTML = text;
    const made = [...holder.content.querySelectorAll('li[data-status]')];
    if (made.length !== asked.length) return tell('The service could not read the row. It is as it was.');
    asked.forEach((row, i) => {
      made[i].querySelector('.number').textContent = row.querySelector('.number').textContent;
      row.replaceWith(made[i]);
      furnish(made[i]);
    });
    saved = false;
    refresh();
    if (made.length === 1) focus(made[0]);
    tell(made.length === 1 ? 'Row ' + made[0].querySelector('.number').textContent + ': ' + names[made[0].dataset.status] + '.' : 'Asked about ' + made.length + ' rows.');
  }

  const names = {'unchanged': 'Unchanged', 'fixed': 'Fixed', 'to-decide': 'To decide', 'turned-down': 'Turned down',
    'not-answered': 'Not answered', 'not-asked': 'Not asked'};
  const counts = review.querySelector('.counts');
  const find = document.createElement('input');

  // The rows that asking again may help: nothing is wrong with them.
  const silent = () => rows().filter((row) => row.dataset.status === 'not-answered' ||
    (row.dataset.status === 'not-asked' && cellsOf(row, 'added')[2] === ''));

  // Shows the rows of one status that hold the words looked for, and counts all of each.
  function refresh() {
    const words = find.value.toLowerCase();
    const tally = {};
    let visible = 0;
    for (const row of rows()) {
      tally[row.dataset.status] = (tally[row.dataset.status] || 0) + 1;
      row.hidden = (shown !== '' && row.dataset.status !== shown) || (words !== '' && !row.textContent.toLowerCase().includes(words));
      visible += row.hidden ? 0 : 1;
    }
    if (shown !== '' && !tally[shown]) { shown = ''; return refresh(); }
    counts.replaceChildren();
    const add = (status, name, count) => {
      const item = document.createElement('li');
      const toggle = button('', () => { shown = status; refresh(); counts.querySelector('[aria-pressed="true"]').focus(); }, item);
      toggle.setAttribute('aria-pressed', String(shown === status));
      const badge = document.createElement('span');
      badge.className = 'badge ' + status;
      badge.textContent = name;
      toggle.append(badge, ' ' + count);
      counts.append(item);
    };
    add('', 'All', list.childElementCount);
    for (const status of Object.keys(names)) if (tally[status]) add(status, names[status], tally[status]);
    empty.hidden = visible > 0;
    const open = rows().filter((row) => !row.hidden && row.dataset.choice === 'open').length;
    acceptAll.hidden = open === 0;
    acceptAll.textContent = 'Accept all shown (' + open + ')';
    askAll.hidden = silent().length === 0;
    askAll.textContent = 'Ask again about what was not answered (' + silent().length + ')';
  }

  find.type = 'search';
  find.id = 'find';
  find.placeholder = 'Search';
  find.setAttribute('aria-label', 'Search the rows');
  find.addEventListener('input', refresh);
  tools.prepend(find);
  const acceptAll = button('', () => {
    rows().filter((row) => !row.hidden && row.dataset.choice === 'open').forEach((row) => choose(row, 'made'));
    refresh();
    tell('Accepted.');
  }, tools);
  const askAll = button('', () => ask(silent()), tools);
  const empty = document.createElement('p');
  empty.className = 'hint';
  empty.textContent = 'No row is like that.';
  list.after(empty);
  rows().forEach(furnish);
  refresh();
  list.addEventListener('click', (event) => { if (event.target.closest('.actions')) refresh(); });

  // What is in the row, and what is to be said of it.
  function finished(row) {
    const isMade = row.dataset.choice === 'made';
    const added = cellsOf(row, 'added');
    const made = row.dataset.made ? cellsOf(row, 'made') : null;
    const status = isMade ? 'fixed' : row.dataset.choice === 'typed' ? 'to-decide' : added[0];
    const proposed = isMade || !made ? '' : added[4] || places.map((place) => made[place]).filter(Boolean).join(', ');
    const cells = isMade ? made : cellsOf(row, 'cells');
    return cells.length > titles.length ? cells : [...cells, status, added[1], added[2], row.dataset.choice === 'typed' ? '' : added[3], proposed];
  }

  document.getElementById('save').addEventListener('submit', (event) => {
    event.preventDefault();
    const csv = record([...titles, 'status', 'confirmation', 'reason', 'zip4', 'proposed']) +
      rows().map((row) => record(finished(row))).join('');
    const link = document.createElement('a');
    link.href = URL.createObjectURL(new Blob([csv], {type: 'text/csv;charset=utf-8'}));
    link.download = 'corrected.csv';
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 10000);
    saved = true;
    tell('Saved ' + list.childElementCount + ' rows as corrected.csv.');
  });

  window.addEventListener('beforeunload', (event) => { if (!saved) event.preventDefault(); });
}
