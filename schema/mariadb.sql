-- Celdora fiscal schema for MariaDB (10.2 or later, which enforces CHECK).
--
-- Creates the library's own tables (prefix ut_, and RegimenEmisor) and the
-- host tables that electronic invoicing reads and writes, as far as it
-- touches them. Run it once on an empty database: it drops nothing and
-- creates every table and index without IF NOT EXISTS.
--
-- The server must run with lower_case_table_names=1. The library's
-- statements spell some table names with other capitals (ut_CFDFOlio,
-- Ut_CFDBitacora, DCxC, CCOnsumo), and with case-sensitive table names, the
-- default on Linux, those statements would not find their tables. Set the
-- option before the data directory is initialised (mariadb-install-db
-- --lower-case-table-names=1, and the same in the server's configuration).
--
-- Conventions of this file:
-- * Every table has the integer key Sys_PK (INT AUTO_INCREMENT), except
--   cDocumentos (ID, given by the host) and gv_Configuracion (keyed by the
--   setting's name).
-- * Integer columns of the row writer's type "Long" are INT, those of type
--   "Integer" are SMALLINT.
-- * Dates are DATETIME, written as 'YYYY-MM-DD HH:MM:SS'.
-- * Texts are utf8mb4. The four 4096-character path and password columns
--   of ut_CFDInfo would not fit together in one row as VARCHAR (a row's
--   VARCHAR columns may take 65535 bytes at most, and utf8mb4 counts four
--   per character), so they are TEXT with a CHECK on their length. Long
--   texts are LONGTEXT: the monthly report, the XML, log lines,
--   acknowledgements. The code image is LONGBLOB.
-- * No foreign keys are declared: a link column with 0 or Null means no
--   link, and every guard of the library is a query of its own.
-- * Each statement ends with a semicolon at the end of a line, and
--   comments are whole lines beginning with "--", between statements
--   only, so that a simple splitter on semicolon plus line break can run
--   the file.

-- Seal certificates. The files stay on disk: the row keeps their paths.
-- uf_noCertificado is the 20-digit number the authority gives the certificate
-- and the order in which certificates are listed. uf_Clave is the private
-- key's password, never in the clear: it holds the enciphered text.
-- uf_PFX is Null in rows older than the PFX support.
CREATE TABLE ut_CFDInfo (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    uf_noCertificado VARCHAR(20) NOT NULL,
    uf_Certificado TEXT CHECK (CHAR_LENGTH(uf_Certificado) <= 4096),
    uf_LlavePrivada TEXT CHECK (CHAR_LENGTH(uf_LlavePrivada) <= 4096),
    uf_PFX TEXT CHECK (CHAR_LENGTH(uf_PFX) <= 4096),
    uf_Clave TEXT CHECK (CHAR_LENGTH(uf_Clave) <= 4096)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

-- Folio ranges approved by the tax authority for sealed comprobantes (CFD).
-- uf_CFDInfo is the certificate that seals the range (ut_CFDInfo.Sys_PK).
-- uf_CFDFolioAnterior is the range that held the same document block before
-- this one (ut_CFDFolio.Sys_PK), Null or 0 when there was none.
-- The monthly report takes the approval year and number from here.
CREATE TABLE ut_CFDFolio (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    uf_Serie VARCHAR(10),
    uf_FolioInicial INT NOT NULL,
    uf_FolioFinal INT NOT NULL,
    uf_noAprobacion INT NOT NULL,
    uf_anoAprobacion INT NOT NULL,
    uf_CFDInfo INT NOT NULL,
    uf_CFDFolioAnterior INT
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;
CREATE INDEX ix_ut_CFDFolio_CFDInfo ON ut_CFDFolio (uf_CFDInfo);

-- Folio ranges approved for paper comprobantes with a two-dimensional code
-- (CBB), one document block each (uf_BlockDoc = BlockDocumentos.Sys_PK).
-- A block may have several ranges. uf_CBB holds the code's image file as it
-- lay on disk (JPEG, BMP, GIF, WMF or EMF).
-- uf_FechaAprobacion is part of the table for new installations. Databases
-- created before it existed get the column from the range editor, which adds
-- it where it is missing. It stays nullable because such older rows have no
-- date.
CREATE TABLE ut_FoliosCBB (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    uf_Serie VARCHAR(10),
    uf_FolioInicial INT NOT NULL,
    uf_FolioFinal INT NOT NULL,
    uf_BlockDoc SMALLINT NOT NULL,
    uf_NumAprobacion SMALLINT NOT NULL,
    uf_FechaAprobacion DATETIME,
    uf_CBB LONGBLOB
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;
CREATE INDEX ix_ut_FoliosCBB_BlockDoc ON ut_FoliosCBB (uf_BlockDoc);

-- One row for each digital comprobante, written by the process that seals or
-- stamps it. A comprobante belongs either to a sale (uf_IVenta = Venta.Sys_PK)
-- or to a receivable (uf_IDCXC = DCXC.Sys_PK). The other link is 0 or Null.
-- A CFD names its folio range (uf_CFDFolio), a CFDI its certificate
-- (uf_CFDI_Info) and its UUID (uf_FolioSAT). The month of uf_FechaHora is the
-- month of the report that lists it. uf_Tipo is the kind of comprobante as
-- the issuing process records it, 3 for a stamped CFDI. uf_CanceladoSAT
-- becomes 1 once the tax authority has cancelled a CFDI, and
-- uf_ackCancelacion_SAT keeps the authority's acknowledgement.
CREATE TABLE ut_CFD (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    uf_IVenta INT,
    uf_IDCXC INT,
    uf_CFDFolio INT,
    uf_CFDI_Info INT,
    uf_FechaHora DATETIME,
    uf_FolioSAT VARCHAR(50),
    uf_Tipo SMALLINT,
    uf_XMLCFDI LONGTEXT,
    uf_CanceladoSAT SMALLINT DEFAULT 0,
    uf_ackCancelacion_SAT LONGTEXT
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;
CREATE INDEX ix_ut_CFD_IVenta ON ut_CFD (uf_IVenta);
CREATE INDEX ix_ut_CFD_IDCXC ON ut_CFD (uf_IDCXC);
CREATE INDEX ix_ut_CFD_CFDFolio ON ut_CFD (uf_CFDFolio);
CREATE INDEX ix_ut_CFD_CFDI_Info ON ut_CFD (uf_CFDI_Info);
CREATE INDEX ix_ut_CFD_FolioSAT ON ut_CFD (uf_FolioSAT);

-- The log line of a comprobante (uf_CFD = ut_CFD.Sys_PK), raw material of the
-- monthly report. uf_Datos is "|" followed by twelve fields, each followed by
-- "|": receiver's RFC, series, folio, approval year and number, date and time,
-- total, VAT, state (1 in force, 0 cancelled), effect, customs document
-- number, its date, customs office. uf_Reportado is 0 until the line goes
-- into a monthly report, then 1.
CREATE TABLE ut_CFDBitacora (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    uf_CFD INT,
    uf_Datos LONGTEXT,
    uf_Reportado SMALLINT DEFAULT 0
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;
CREATE INDEX ix_ut_CFDBitacora_CFD ON ut_CFDBitacora (uf_CFD);

-- Stored monthly reports, at most one for a month and year. uf_Nombre is the
-- file name without ".txt": "1", the issuer's RFC, the month as two digits and
-- the year. uf_Contenido is the whole report text, lines joined by CR LF, and
-- empty for a month reported without comprobantes. Its nominal size is 32000
-- but it is a long text here, so that a report of any size is kept whole.
CREATE TABLE ut_CFDInforme (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    uf_Nombre VARCHAR(50) NOT NULL,
    uf_Contenido LONGTEXT,
    uf_Mes INT NOT NULL,
    uf_Anio INT NOT NULL,
    uf_Fecha DATETIME NOT NULL
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;
CREATE UNIQUE INDEX ix_ut_CFDInforme_Periodo ON ut_CFDInforme (uf_Anio, uf_Mes);

-- Summary lines that stand for the detail of a sale billed in summary form
-- (FKVenta = Venta.Sys_PK), one or two per sale. Rows are only ever inserted
-- and deleted by sale, never addressed one by one: Sys_PK is a plain
-- surrogate key that no statement of the library reads.
CREATE TABLE ut_HdFacturaResumen (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    Unidad VARCHAR(50),
    Descripcion VARCHAR(255),
    Cantidad DOUBLE,
    Precio DOUBLE,
    Descuentos DOUBLE,
    Impuestos DOUBLE,
    FKVenta INT
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;
CREATE INDEX ix_ut_HdFacturaResumen_FKVenta ON ut_HdFacturaResumen (FKVenta);

-- Fiscal regimes of the issuer, listed by name. Notas may be Null.
CREATE TABLE RegimenEmisor (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    Regimen VARCHAR(255) NOT NULL,
    Notas VARCHAR(255)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

-- Host table. Names of the host's document kinds: 4 Factura, 5 Nota de
-- Crédito, 17 Nota de Cargo take part in electronic invoicing. The key is ID,
-- given by the host, not generated.
CREATE TABLE cDocumentos (
    ID INT NOT NULL PRIMARY KEY,
    Const VARCHAR(50)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

-- Host table. A block of documents of one kind (Documento) and series. The
-- fiscal settings tie a block of kind 4, 5 or 17 to one of: a folio range
-- (uf_CFDFolio, with Fiscal 1), a certificate for CFDI (uf_CFDI_Info), or a
-- CBB range (ut_FoliosCBB.uf_BlockDoc). 0 or Null means no link.
CREATE TABLE BlockDocumentos (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    Serie VARCHAR(10),
    Documento SMALLINT,
    Fiscal SMALLINT DEFAULT 0,
    uf_CFDFolio INT,
    uf_CFDI_Info INT
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;
CREATE INDEX ix_BlockDocumentos_CFDFolio ON BlockDocumentos (uf_CFDFolio);

-- Host table. A folio: its number (Folio) within its block (Block =
-- BlockDocumentos.Sys_PK). Sales and receivables point here through IFolio.
CREATE TABLE FoliosDocumentos (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    Folio INT,
    Block INT
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;
CREATE INDEX ix_FoliosDocumentos_Block ON FoliosDocumentos (Block);

-- Host table, as far as electronic invoicing reads it. A sale, on the folio
-- IFolio (FoliosDocumentos.Sys_PK). Total = Subtotal - Descuento1 - Descuento2
-- + Impuesto1 + Impuesto2 + Impuesto3 + Impuesto4, VAT in Impuesto1.
-- StatusAdministrativo: 3 processed, 99 cancelled. uf_hdTipoFormato: 0
-- detailed, 1 summary with one concept, 2 summary with two concepts.
CREATE TABLE Venta (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    IFolio INT,
    Documento SMALLINT,
    StatusAdministrativo SMALLINT,
    Referencia VARCHAR(50),
    Subtotal DOUBLE DEFAULT 0,
    Descuento1 DOUBLE DEFAULT 0,
    Descuento2 DOUBLE DEFAULT 0,
    Impuesto1 DOUBLE DEFAULT 0,
    Impuesto2 DOUBLE DEFAULT 0,
    Impuesto3 DOUBLE DEFAULT 0,
    Impuesto4 DOUBLE DEFAULT 0,
    uf_hdTipoFormato SMALLINT DEFAULT 0
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;
CREATE INDEX ix_Venta_IFolio ON Venta (IFolio);

-- Host table. A line of a sale (FK_Venta_Detalle = Venta.Sys_PK), with the VAT
-- of the line in Impuesto1. The VAT rate of a line is
-- Impuesto1 * 100 / (Cantidad * Precio).
CREATE TABLE DVenta (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    FK_Venta_Detalle INT,
    Cantidad DOUBLE DEFAULT 0,
    Precio DOUBLE DEFAULT 0,
    Impuesto1 DOUBLE DEFAULT 0
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;
CREATE INDEX ix_DVenta_Venta ON DVenta (FK_Venta_Detalle);

-- Host table. A receivable, on the folio IFolio (FoliosDocumentos.Sys_PK).
-- XMLUnidad and XMLPorcentajeIVAVenta are set for the receivable's
-- comprobante: the unit of its concept and the VAT rate of the sale behind it.
CREATE TABLE DCXC (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    IFolio INT,
    Documento SMALLINT,
    XMLUnidad VARCHAR(50),
    XMLPorcentajeIVAVenta DOUBLE
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;
CREATE INDEX ix_DCXC_IFolio ON DCXC (IFolio);

-- Host table. Consumption centres. uf_DomicilioCFD is the centre's expedition
-- address (Domicilio.Sys_PK), Null when it has none. uf_ExpedicionCXC is 1 for
-- the one centre whose address receivables use, 0 for the others.
CREATE TABLE CConsumo (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    Descripcion VARCHAR(100),
    uf_DomicilioCFD INT,
    uf_ExpedicionCXC SMALLINT DEFAULT 0
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

-- Host table. An address, written through the host's address object. Direccion
-- holds street, exterior and interior number as "||street|number|interior".
-- Colonia, Telefono and Notas are the neighbourhood, telephone and remarks.
CREATE TABLE Domicilio (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    ICiudad INT,
    Direccion VARCHAR(255),
    CodPos VARCHAR(10),
    Colonia VARCHAR(100),
    Telefono VARCHAR(50),
    Notas VARCHAR(255)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

-- Host table. A city, within its country (IPais = Pais.Sys_PK) and, when the
-- country is divided, its state (IEstado = Estado.Sys_PK, Null when none).
-- The host keeps a city named "(desconocido)" for addresses whose city is
-- unknown: the fiscal settings refuse it.
CREATE TABLE Ciudad (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    Nombre VARCHAR(100),
    IPais INT,
    IEstado INT
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

-- Host table. A state, within its country (IPais = Pais.Sys_PK). Only the
-- address controls' source of places reads and writes it.
CREATE TABLE Estado (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    Nombre VARCHAR(100),
    IPais INT
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

-- Host table. A country.
CREATE TABLE Pais (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    Nombre VARCHAR(100)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

-- Host table. Display names of the tax types: uf_TipoI1 for Impuesto1 (VAT,
-- "IVA") and uf_TipoI3 for Impuesto3 ("IEPS"). Empty or Null until set.
CREATE TABLE CfgImpuesto (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    uf_TipoI1 VARCHAR(50),
    uf_TipoI3 VARCHAR(50)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

-- Host table. User groups. The permission settings hold lists of their Sys_PK.
CREATE TABLE UserGroup (
    Sys_PK INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    GroupID VARCHAR(50)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;

-- Company settings store of the platform, one row for each key. A key holds a
-- number (Numero) or a text (Texto), always the same one for a given key. A
-- key without a row answers the reader's default.
CREATE TABLE gv_Configuracion (
    Clave VARCHAR(60) NOT NULL PRIMARY KEY,
    Numero DOUBLE,
    Texto VARCHAR(4000)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4;
