'use strict';

// What the elements of a report file are called on the page, and in which unit their figures are.
// An element that is missing here is shown under its own name, so that nothing of the file is lost.
(function (orvex) {
  const labels = {};

  labels.kinds = {
    Brief: {title: 'Brief emissions report'},
    Summary: {title: 'Summary emissions report'},
    Detail: {title: 'Detail emissions report'},
  };

  // In the order of the page's columns; a report shows those that it has.
  labels.losses = [
    {name: 'WorkingLoss', label: 'Working loss'},
    {name: 'BreathingLoss', label: 'Breathing loss'},
    {name: 'RimSealLoss', label: 'Rim seal loss'},
    {name: 'WithdrawlLoss', label: 'Withdrawal loss'},
    {name: 'DeckFittingLoss', label: 'Deck fitting loss'},
    {name: 'DeckSeamLoss', label: 'Deck seam loss'},
  ];

  labels.identification = {
    UserID: {label: 'User identification'},
    City: {label: 'City'},
    State: {label: 'State'},
    Company: {label: 'Company'},
    TankType: {label: 'Type of tank'},
    Description: {label: 'Description'},
  };

  // A size belongs to the type of roof that stands beside it in the group.
  const roofSizes = {
    Cone: {label: 'Slope (cone roof)', unit: 'ft/ft'},
    Dome: {label: 'Radius (dome roof)', unit: 'ft'},
  };

  labels.groups = {
    Dimensions: {
      title: 'Tank dimensions',
      items: {
        ShellHeight: {label: 'Shell height', unit: 'ft'},
        ShellLength: {label: 'Shell length', unit: 'ft'},
        Diameter: {label: 'Diameter', unit: 'ft'},
        LiquidHeight: {label: 'Maximum liquid height', unit: 'ft'},
        AveLiquidHeight: {label: 'Average liquid height', unit: 'ft'},
        Volume: {label: 'Volume', unit: 'gal'},
        Turnovers: {label: 'Turnovers'},
        NetThroughput: {label: 'Net throughput', unit: 'gal/yr'},
        Heated: {label: 'Heated', flag: true},
        Underground: {label: 'Underground', flag: true},
        SuppRoof: {label: 'Self-supporting roof', flag: true},
        NumCols: {label: 'Number of columns'},
        ColDiam: {label: 'Effective column diameter', unit: 'ft'},
      },
    },
    PaintChar: {
      title: 'Paint characteristics',
      items: {
        InternalCondition: {label: 'Internal shell condition'},
        ShellColor: {label: 'Shell color/shade'},
        ShellCondition: {label: 'Shell condition'},
        RoofColor: {label: 'Roof color/shade'},
        RoofCondition: {label: 'Roof condition'},
      },
    },
    RoofChar: {
      title: 'Roof characteristics',
      items: {
        Type: {label: 'Type'},
        Height: {label: 'Height', unit: 'ft'},
        Size: {byType: roofSizes, label: 'Slope or radius'},
        Category: {label: 'Fitting category'},
      },
    },
    BreatherVent: {
      title: 'Breather vent settings',
      items: {
        Vacuum: {label: 'Vacuum setting', unit: 'psig'},
        Pressure: {label: 'Pressure setting', unit: 'psig'},
      },
    },
    RimSeal: {
      title: 'Rim seal system',
      items: {
        Construction: {label: 'Tank construction'},
        Primary: {label: 'Primary seal'},
        Secondary: {label: 'Secondary seal'},
      },
    },
    DeckChar: {
      title: 'Deck characteristics',
      items: {
        Fitting: {label: 'Fitting category'},
        Type: {label: 'Deck type'},
        Construction: {label: 'Construction'},
        DeckSeam: {label: 'Deck seam'},
        SeamLength: {label: 'Deck seam length', unit: 'ft'},
      },
    },
    DeckFitting: {title: 'Deck fittings', items: {}},
    MeteorologicalData: {title: 'Meteorological data', items: {}},
  };

  // `group` is the heading over neighbouring columns; `again` is repeated where a mixture goes on on another sheet.
  labels.liquid = [
    {name: 'MixtureComponent', share: 14, label: 'Mixture / component', rowHeading: true},
    {name: 'Month', share: 3.5, label: 'Month', again: true},
    {name: 'AveDailyTemp', share: 4.5, label: 'Avg.', group: 'Liquid surface temp.', unit: 'deg F', figure: true},
    {name: 'MinDailyTemp', share: 4.5, label: 'Min.', group: 'Liquid surface temp.', unit: 'deg F', figure: true},
    {name: 'MaxDailyTemp', share: 4.5, label: 'Max.', group: 'Liquid surface temp.', unit: 'deg F', figure: true},
    {name: 'BulkTemp', share: 6, label: 'Liquid bulk temp.', unit: 'deg F', figure: true},
    {name: 'AvePressure', share: 5.5, label: 'Avg.', group: 'Vapor pressure', unit: 'psia', figure: true},
    {name: 'MinPressure', share: 5.5, label: 'Min.', group: 'Vapor pressure', unit: 'psia', figure: true},
    {name: 'MaxPressure', share: 5.5, label: 'Max.', group: 'Vapor pressure', unit: 'psia', figure: true},
    {name: 'VapMolWeight', share: 6.5, label: 'Vapor mol. weight', figure: true},
    {name: 'LiquidMassFraction', share: 6.5, label: 'Liquid mass fraction', figure: true},
    {name: 'VaporMassFraction', share: 6.5, label: 'Vapor mass fraction', figure: true},
    {name: 'MolWeight', share: 5, label: 'Mol. weight', figure: true},
    {name: 'Basis', share: 22, label: 'Basis for vapor pressure calculations', prose: true},
  ];

  labels.deckFittings = [
    {name: 'FitType', label: 'Fitting', rowHeading: true},
    {name: 'CoverType', label: 'Cover'},
    {name: 'Quantity', label: 'Quantity', figure: true},
  ];

  labels.roofFittings = [
    {name: 'label', label: 'Fitting / status', rowHeading: true},
    {name: 'quantity', label: 'Quantity', figure: true},
    {name: 'KFa', label: 'KFa', unit: 'lb-mole/yr', figure: true},
    {name: 'KFb', label: 'KFb', unit: 'lb-mole/(yr mph^m)', figure: true},
    {name: 'm', label: 'm', figure: true},
    {name: 'losses', label: 'Losses', unit: 'lb', figure: true},
  ];

  labels.rollUp = [
    {name: 'id', label: 'Tank', rowHeading: true},
    {name: 'company', label: 'Company'},
    {name: 'type', label: 'Type'},
    {name: 'location', label: 'Location'},
    {name: 'loss', label: 'Total emissions', unit: 'lb', figure: true},
  ];

  labels.chemicals = [
    {name: 'name', label: 'Chemical', rowHeading: true},
    {name: 'tanks', label: 'Tanks', figure: true},
    {name: 'text', label: 'Total emissions', unit: 'lb', figure: true},
  ];

  labels.months = ['Annual', 'Jan', 'Feb', 'Mar', 'Apr', 'May', 'Jun', 'Jul', 'Aug', 'Sep', 'Oct', 'Nov', 'Dec'];

  /** "DeckSeam" as "Deck seam", for elements without a label. */
  labels.spellOut = function (name) {
    const words = name.replace(/([a-z\d])([A-Z])/g, '$1 $2').replace(/_/g, ' ');
    return words.charAt(0).toUpperCase() + words.slice(1).toLowerCase();
  };

  /** {label, unit, flag} of an item of a group; `type` is the group's own item "Type", if it has one. */
  labels.ofItem = function (group, name, type) {
    const known = (labels.groups[group] && labels.groups[group].items[name]) || {label: labels.spellOut(name)};
    return (known.byType && known.byType[(type || '').trim()]) || known;
  };

  orvex.labels = labels;
})(window.orvex = window.orvex || {});
