printf 'latitude,longitude\n-10,76.8\n0,77.2\n10,77.6\n' | kitlib geoid
