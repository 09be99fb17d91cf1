#include "catalogue/schema.h"

#include <sqlite3.h>

#include "catalogue/sql_layer.h"

namespace orvane {

// The four texts are the schema as every catalogue of the program was made; they are
// kept byte for byte (the blanks included), since the view is dropped and made anew
// from its text and readers rely on the column order.
const std::string_view kElementsStatement =
    R"sql(CREATE TABLE elements(id INTEGER NOT NULL PRIMARY KEY autoincrement, comet INTEGER NOT NULL default '', name TEXT(60) NOT NULL default '', des TEXT(30) NOT NULL default '', olddes TEXT(30) NOT NULL default '', htype TEXT(1) NOT NULL default '', E_year INTEGER NOT NULL default '', E_month INTEGER NOT NULL default '', E_day INTEGER NOT NULL default '', hyear INTEGER NOT NULL default '', hmonth INTEGER NOT NULL default '', hday REAL NOT NULL default '', hday_err REAL NOT NULL default '', q REAL NOT NULL default '', q_err REAL NOT NULL default '', e REAL NOT NULL default '', e_err REAL NOT NULL default '', P REAL NOT NULL default '', w REAL NOT NULL default '', w_err REAL NOT NULL default '', Om REAL NOT NULL default '', Om_err REAL NOT NULL default '', i REAL NOT NULL default '', i_err REAL NOT NULL default '', A1 REAL NOT NULL default '', A1_err REAL NOT NULL default '', A2 REAL NOT NULL default '', A2_err REAL NOT NULL default '', A3 REAL NOT NULL default '', A3_err REAL NOT NULL default '', Astyle TEXT(2) NOT NULL default '', NGE_DT REAL NOT NULL default '', NGE_DT_err REAL NOT NULL default '', DFoto REAL NOT NULL default '', DFoto_err REAL NOT NULL default '', Obs INTEGER NOT NULL default '', F_year INTEGER NOT NULL default '', F_month INTEGER NOT NULL default '', F_day INTEGER NOT NULL default '', L_year INTEGER NOT NULL default '', L_month INTEGER NOT NULL default '', L_day INTEGER NOT NULL default '', hsystem TEXT(60) NOT NULL default '', hPlan INTEGER NOT NULL default '', SBP TEXT(60) NOT NULL default '', b_perturber TEXT(3) NOT NULL default '', f_perturber TEXT(4) NOT NULL default '', RMS REAL NOT NULL default '', hreference TEXT(60) NOT NULL default '', Producer TEXT(60) NOT NULL default '', Diameter REAL NOT NULL default '', Diameter_err REAL NOT NULL default '', ARatio REAL NOT NULL default '', ARatio_err REAL NOT NULL default '', RotP REAL NOT NULL default '', RotP_err REAL NOT NULL default '', Albedo REAL NOT NULL default '', Albedo_err REAL NOT NULL default '', M1 REAL NOT NULL default '', M1_err REAL NOT NULL default '', K1 REAL NOT NULL default '', K1_err REAL NOT NULL default '', M2 REAL NOT NULL default '', M2_err REAL NOT NULL default '', K2 REAL NOT NULL default '', K2_err REAL NOT NULL default '', htimeStamp TEXT(20) NOT NULL default (DATETIME('now' ,'localtime')), hinfo TEXT NOT NULL default 'No Information Available...'); CREATE TRIGGER update_elements_timeStamp AFTER UPDATE ON elements BEGIN UPDATE elements SET htimeStamp = DATETIME('now' ,'localtime') WHERE rowid = old.rowid; END;)sql";

const std::string_view kIndexesStatement =
    R"sql(CREATE INDEX id_ind ON elements(id); CREATE INDEX comet_ind ON elements(comet); CREATE INDEX name_ind ON elements(name); CREATE INDEX des_ind ON elements(des); CREATE INDEX olddes_ind ON elements(olddes); CREATE INDEX type_ind ON elements(htype); CREATE INDEX E_year_ind ON elements(E_year, E_month, E_day); CREATE INDEX E_month_ind ON elements(E_month, E_year, E_day); CREATE INDEX E_day_ind ON elements(E_day, E_year, E_month); CREATE INDEX hyear_ind ON elements(hyear, hmonth, hday); CREATE INDEX hmonth_ind ON elements(hmonth, hyear, hday); CREATE INDEX hday_ind ON elements(hday, hyear, hmonth); CREATE INDEX q_ind ON elements(q); CREATE INDEX e_ind ON elements(e); CREATE INDEX P_ind ON elements(P); CREATE INDEX w_ind ON elements(w); CREATE INDEX Om_ind ON elements(Om); CREATE INDEX i_ind ON elements(i); CREATE INDEX A1_ind ON elements(A1); CREATE INDEX A2_ind ON elements(A2); CREATE INDEX A3_ind ON elements(A3); CREATE INDEX Astyle_ind ON elements(Astyle); CREATE INDEX NGE_DT_ind ON elements(NGE_DT); CREATE INDEX DFoto_ind ON elements(DFoto); CREATE INDEX Obs_ind ON elements(Obs); CREATE INDEX F_year_ind ON elements(F_year, F_month, F_day); CREATE INDEX F_month_ind ON elements(F_month, F_year, F_day); CREATE INDEX F_day_ind ON elements(F_day, F_year, F_month); CREATE INDEX L_year_ind ON elements(L_year, L_month, L_day); CREATE INDEX L_month_ind ON elements(L_month, L_year, L_day); CREATE INDEX L_day_ind ON elements(L_day, L_year, L_month); CREATE INDEX hsystem_ind ON elements(hsystem); CREATE INDEX hPlan_ind ON elements(hPlan); CREATE INDEX SBP_ind ON elements(SBP); CREATE INDEX b_perturber_ind ON elements(b_perturber); CREATE INDEX f_perturber_ind ON elements(f_perturber); CREATE INDEX RMS_ind ON elements(RMS); CREATE INDEX hreference_ind ON elements(hreference); CREATE INDEX Producer_ind ON elements(Producer); CREATE INDEX Diameter_ind ON elements(Diameter); CREATE INDEX ARatio_ind ON elements(ARatio); CREATE INDEX RotP_ind ON elements(RotP); CREATE INDEX Albedo_ind ON elements(Albedo);   CREATE INDEX M1_ind ON elements(M1); CREATE INDEX K1_ind ON elements(K1); CREATE INDEX M2_ind ON elements(M2); CREATE INDEX K2_ind ON elements(K2); CREATE INDEX htimeStamp_ind ON elements(htimeStamp);)sql";

const std::string_view kViewStatement =
    R"sql(CREATE VIEW e_elements AS SELECT m1.*, CASE WHEN m0.e<1 and (m0.M_calc_tmp>360 or m0.M_calc_tmp<0)  THEN CASE WHEN m0.M_calc_tmp-round(m0.M_calc_tmp/360)*360 < 0  THEN m0.M_calc_tmp-round(m0.M_calc_tmp/360)*360 + 360  ELSE m0.M_calc_tmp-round(m0.M_calc_tmp/360)*360  END  ELSE m0.M_calc_tmp  END M_calc, CASE WHEN m0.e<1  THEN (180/pi())*(0.01720209895/pow(m0.q/(1-m0.e),1.5))  ELSE 'n/a'  END n_calc, CASE WHEN m0.e<>1  THEN m0.q/(1-m0.e)  ELSE 'n/a'  END a_calc, CASE WHEN m0.e<1  THEN m0.q*(1+m0.e)/(1-m0.e)  ELSE 'n/a'  END Q_calc, CASE WHEN m0.e>1  THEN 'Hyperbolic'  WHEN m0.e=1  THEN 'Parabolic'  WHEN (m0.e<1  and (5.204/(m0.q/(1-m0.e))+2*sqrt(((m0.q/(1-m0.e))/5.204)*(1-m0.e*m0.e))*cos(radians(m0.i)))>2  and (5.204/(m0.q/(1-m0.e))+2*sqrt(((m0.q/(1-m0.e))/5.204)*(1-m0.e*m0.e))*cos(radians(m0.i)))<3)  THEN 'Jupiter-family'  WHEN (m0.e<1 and (5.204/(m0.q/(1-m0.e))+2*sqrt(((m0.q/(1-m0.e))/5.204)*(1-m0.e*m0.e))*cos(radians(m0.i)))>3 and (m0.q/(1-m0.e))<5.204)  THEN 'Encke-type'  WHEN (m0.e<1 and (5.204/(m0.q/(1-m0.e))+2*sqrt(((m0.q/(1-m0.e))/5.204)*(1-m0.e*m0.e))*cos(radians(m0.i)))>3 and (m0.q/(1-m0.e))>5.204)  THEN 'Chiron-type'  WHEN pow(m0.q/(1-m0.e),1.5)<20  THEN 'Jupiter-family*'  WHEN pow(m0.q/(1-m0.e),1.5)>20 and pow(m0.q/(1-m0.e),1.5)<200  THEN 'Halley-type'  ELSE 'No class'  END class_calc, CASE WHEN m0.e<1  THEN pow(m0.q/(1-m0.e),1.5)  ELSE 'n/a'  END P_calc FROM (SELECT id, e, q, i, p, CASE WHEN e=1 THEN (180/pi())*((0.01720209895/sqrt(2))*(jd1-jd2)/pow(q,1.5)) ELSE ((180/pi())*(0.01720209895/pow(q/abs(1-e),1.5))*(jd1-jd2)) END M_calc_tmp  FROM (SELECT id, e, q, i, p, jd2, CASE WHEN length(trim(E_year))=0 THEN jd2 ELSE julianday(CASE WHEN E_year<0 THEN '-' ELSE '' END || substr('0000'||cast(abs(E_year) as TEXT), -4) ||'-'|| substr('0000'||cast(E_month as TEXT), -2) ||'-'|| substr('0000'||cast(E_day as TEXT), -2)||' 00:00:00') END jd1  FROM (SELECT id, e, q, i, p, E_year, E_month, E_day, julianday(CASE WHEN hyear<0 THEN '-' ELSE '' END || substr('0000'||cast(abs(hyear) as TEXT), -4) ||'-'|| substr('0000'||cast(hmonth as TEXT), -2) ||'-'|| substr('0000'||cast(floor(hday) as TEXT), -2) ||' 00:00:00')+(hday-floor(hday)) jd2  FROM elements))) m0, elements m1 WHERE m0.id = m1.id;)sql";

const std::string_view kParametersStatement =
    R"sql(CREATE TABLE parameters(id INTEGER NOT NULL PRIMARY KEY autoincrement, name TEXT(30) NOT NULL, value TEXT(30)); INSERT INTO parameters(name, value) VALUES('version', '2'); INSERT INTO parameters(name, value) VALUES('elements update name', '00000000o.oup'); INSERT INTO parameters(name, value) VALUES('elements update time', 'Never updated...'); INSERT INTO parameters(name, value) VALUES('elements update id', '0'); INSERT INTO parameters(name, value) VALUES('elements update prev id', '0');)sql";

std::array<std::string_view, 4> schemaStatements() {
    return {kElementsStatement, kIndexesStatement, kViewStatement, kParametersStatement};
}

int createCatalogueSchema(CatalogueDb& db) {
    // One transaction around the four statements: the fifty objects are written with
    // one sync of the file instead of one each, which makes a first start quick.
    sql::begin(db);
    int first = SQLITE_OK;
    for (const std::string_view statement : schemaStatements()) {
        const int code = sql::execute(db, statement);
        if (first == SQLITE_OK && code != SQLITE_OK) {
            first = code;
        }
    }
    sql::commit(db);
    return first;
}

int createCatalogue(std::string_view databasePath) {
    CatalogueDb db;
    int code = sql::open(databasePath, db);
    if (code == SQLITE_OK) {
        code = createCatalogueSchema(db);
    }
    const int closed = sql::close(db);
    return code != SQLITE_OK ? code : closed;
}

}  // namespace orvane
