'use strict';

// Start-up: reads the report beside the page, or asks the person for it, and shows it.
// <html data-state> tells programs how far that is: loading, ready, waiting (for the person's file) or failed.
(function (orvex) {
  const {element} = orvex;
  const root = document.documentElement;
  const fileName = root.dataset.file;
  const kinds = root.dataset.kinds.split(' ');
  const referenceReport = {page: 'data_display.htm', name: 'a report on reference data'};
  const known = {
    Brief: {page: 'briefdisplay.htm', name: 'a Brief report'},
    Summary: {page: 'summarydisplay.htm', name: 'a Summary report'},
    Detail: {page: 'summarydisplay.htm', name: 'a Detail report'},
    Chemical: referenceReport,
    Met: referenceReport,
    Fit: referenceReport,
    Rim: referenceReport,
    Deck: referenceReport,
    Profile: referenceReport,
  };

  function setState(state) { root.dataset.state = state; }

  function checkKind(kind, name) {
    if (kinds.includes(kind)) return;
    const other = Object.hasOwn(known, kind) ? known[kind] : null;
    throw new orvex.ReportError(other ?
      `${name} holds ${other.name}, but this page shows ${root.dataset.shows}: open ${other.page} instead.` :
      `${name} holds a report of the unknown kind “${kind}”.`);
  }

  function render({main, title, subject, navigation, contents}) {
    document.title = subject ? `${title}: ${subject}` : title;
    document.body.replaceChildren(element('a', {class: 'skip', href: '#report'}, 'Skip to the report'),
        navigation || '', main);
    orvex.setPrintable({main, title, contents});
    root.classList.toggle('single', !navigation);
  }

  function show(text, name) {
    try {
      const report = orvex.readReport(text, name);
      checkKind(report.kind, name);
      render(orvex.buildPage(report, name));
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
        element('h1', {}, root.dataset.name),
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
