'use strict';

// Start-up: reads the report beside the page, or asks the person for it, and shows it.
// <html data-state> tells programs how far that is: loading, ready, waiting (for the person's file) or failed.
(function (orvex) {
  const {element} = orvex;
  const root = document.documentElement;
  const fileName = root.dataset.file;
  const kinds = root.dataset.kinds.split(' ');
  const pages = {Brief: 'briefdisplay.htm', Summary: 'summarydisplay.htm', Detail: 'summarydisplay.htm'};

  function setState(state) { root.dataset.state = state; }

  function article(kind) { return `${/^[AEIOU]/i.test(kind) ? 'an' : 'a'} ${kind} report`; }

  function checkKind(model, name) {
    if (kinds.includes(model.kind)) return;
    const here = kinds.map((kind) => `${kind} reports`).join(' and ');
    const page = pages[model.kind];
    throw new orvex.ReportError(page ?
      `${name} holds ${article(model.kind)}, but this page shows ${here}: open ${page} instead.` :
      `${name} holds a report of the unknown kind “${model.kind}”.`);
  }

  function render(model) {
    const main = element('main', {id: 'report'}, ...orvex.sections.build(model));
    const parts = orvex.sections.parts(main);
    const places = orvex.sections.places(model);
    const title = orvex.labels.kinds[model.kind].title;
    const single = places.length === 1;
    document.title = single ? `${title}: ${places[0].text}` : title;
    document.body.replaceChildren(
        element('a', {class: 'skip', href: '#report'}, 'Skip to the report'),
        single ? '' : orvex.contents.build(parts, places), main);
    orvex.setPrintable({main, title, contents: () => single ? null : orvex.contents.printed(parts, places)});
    root.classList.toggle('single', single);
  }

  function show(text, name) {
    try {
      const model = orvex.readModel(text, name);
      checkKind(model, name);
      render(model);
    } catch (error) {
      ask('failed', error instanceof orvex.ReportError ? error.message : `${name} cannot be shown: ${error.message}.`);
      return;
    }
    performance.mark('orvex-ready');
    setState('ready');
    if (window.location.hash) window.location.replace(window.location.hash);
  }

  function readPicked(files) {
    if (files.length === 0) return;
    setState('loading');
    files[0].text().then((text) => show(text, files[0].name),
        () => ask('failed', `${files[0].name} could not be read.`));
  }

  // Leaves the person one sentence, and the means to go on: pick the file, or drop it anywhere on the page.
  function ask(state, sentence) {
    const input = element('input', {type: 'file', id: 'pick', accept: '.xml,text/xml,application/xml'});
    input.addEventListener('change', () => readPicked(input.files));
    document.body.replaceChildren(element('main', {class: 'ask'},
        element('h1', {}, 'Emissions report'),
        element('p', {id: 'message', role: state === 'failed' ? 'alert' : 'status'}, sentence),
        element('div', {class: 'drop'}, element('label', {for: 'pick'}, `Choose ${fileName}`), input,
            element('p', {}, 'or drop the file here'))));
    setState(state);
  }

  function acceptDrops() {
    const asking = () => document.querySelector('main.ask') !== null;
    document.addEventListener('dragover', (event) => { if (asking()) event.preventDefault(); });
    document.addEventListener('drop', (event) => {
      if (!asking()) return;
      event.preventDefault();
      readPicked(event.dataTransfer.files);
    });
  }

  // XMLHttpRequest, since an embedded browser lets a page from disk read its neighbour with it, but not with fetch.
  function readNeighbour() {
    const refused = () => ask('waiting',
        `The browser does not let this page read the file ${fileName} beside it, or there is none: choose it here.`);
    const request = new XMLHttpRequest();
    request.onload = () => {
      // From disk the status is 0; a server's own error page is no report.
      if (request.status >= 400) refused();
      else show(request.responseText, fileName);
    };
    request.onerror = refused;
    try {
      request.open('GET', fileName);
      request.overrideMimeType('text/plain; charset=utf-8');
      request.send();
    } catch (error) {
      refused();
    }
  }

  acceptDrops();
  performance.mark('orvex-start');
  readNeighbour();
})(window.orvex = window.orvex || {});
