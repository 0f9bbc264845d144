// SPDX-License-Identifier: MIT
// Prints what Apache POI reads of workbooks, one line each for a file, a sheet and a cell, fields parted by tabs:
//     file PATH        sheet NAME        text ROW COLUMN TEXT        number ROW COLUMN NUMBER
// A file that it cannot read gives a line "failure" with the reason. Backslashes, tabs and line breaks are escaped.
import java.io.File;
import java.io.PrintStream;

import org.apache.poi.hssf.usermodel.HSSFWorkbook;
import org.apache.poi.ss.usermodel.Cell;
import org.apache.poi.ss.usermodel.FormulaError;
import org.apache.poi.ss.usermodel.Row;
import org.apache.poi.ss.usermodel.Sheet;
import org.apache.poi.ss.usermodel.WorkbookFactory;

public class PrintWorkbooks {
    static PrintStream out;

    static void line(Object... fields) {
        StringBuilder text = new StringBuilder();
        for (Object field : fields) {
            String escaped = field.toString().replace("\\", "\\\\").replace("\t", "\\t").replace("\n", "\\n")
                .replace("\r", "\\r");
            text.append(text.length() == 0 ? "" : "\t").append(escaped);
        }
        out.print(text.append('\n'));
    }

    static void print(Cell cell) {
        int row = cell.getRowIndex();
        int column = cell.getColumnIndex();
        switch (cell.getCellType()) {
        case BLANK -> { }
        case NUMERIC -> line("number", row, column, cell.getNumericCellValue());
        case STRING -> line("text", row, column, cell.getStringCellValue());
        case ERROR -> line("text", row, column, FormulaError.forInt(cell.getErrorCellValue()).getString());
        default -> line("failure", "a cell of the kind " + cell.getCellType());
        }
    }

    public static void main(String[] paths) throws Exception {
        out = new PrintStream(System.out, false, "UTF-8");
        for (String path : paths) {
            line("file", path);
            try (HSSFWorkbook book = (HSSFWorkbook) WorkbookFactory.create(new File(path), null, true)) {
                book.getAllPictures();
                for (Sheet sheet : book) {
                    line("sheet", sheet.getSheetName());
                    sheet.getDrawingPatriarch();
                    for (Row row : sheet) {
                        for (Cell cell : row) {
                            print(cell);
                        }
                    }
                }
            } catch (Exception failure) {
                line("failure", failure);
            }
        }
        out.flush();
    }
}
