kitlib timeid
