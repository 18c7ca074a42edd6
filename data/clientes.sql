-- The shop database as it is installed: the four tables that every
-- installation has had from the start, empty. Newer tables and columns are
-- added by the program's schema updates at start-up.
-- Types: text fields TEXT, counters INTEGER PRIMARY KEY AUTOINCREMENT,
-- amounts REAL, whole numbers INTEGER, dates TEXT in ISO form.

CREATE TABLE vendrix_clientes (
    ID INTEGER PRIMARY KEY AUTOINCREMENT,
    NOMBRE TEXT,
    DIRECCION TEXT,
    CUIT TEXT,
    PROVINCIA TEXT,
    DESCUENTO REAL
);

-- Descuento and Ganancia hold formulas such as "10+5", so they are text.
CREATE TABLE vendrix_descuentos (
    Proveedor TEXT,
    Grupo TEXT,
    Descuento TEXT,
    Ganancia TEXT,
    borrable TEXT
);

CREATE TABLE vendrix_facturas (
    ID INTEGER PRIMARY KEY AUTOINCREMENT,
    nro_ticket INTEGER,
    fecha TEXT,
    letra TEXT,
    Puntoventa TEXT,
    tipo TEXT,
    cliente TEXT,
    codigo TEXT,
    cuit TEXT,
    razon_social TEXT,
    Domicilio TEXT,
    Total_facturado REAL,
    Descuentos REAL,
    Iva REAL,
    Total REAL,
    Descuento_habitual REAL,
    total_neto REAL,
    Total_iva REAL,
    forma_de_pago TEXT,
    carro TEXT,
    maquina TEXT,
    insert_timestamp TEXT
);

CREATE TABLE vendrix_factura_items (
    Factura_Id INTEGER,
    Offset INTEGER,
    Proveedor TEXT,
    Codigo TEXT,
    Descripcion TEXT,
    Costo_siva REAL,
    venta_siva REAL,
    cantidad REAL,
    iva REAL,
    Precio_final REAL,
    descripcion_nueva TEXT,
    ganancia REAL,
    descuento REAL
);
